#import "bench/bench_phone.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <stdlib.h>

#include <chrono>
#include <cstdio>
#include <initializer_list>

#include "simulator/frameworks/substrate/substrate.h"
#import "simulator/hosts/callbar/CallBarCall.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/contacts/photo.h"
#include "simulator/maker/make_root.h"
#include "simulator/runtime/process/injector.h"
#include "simulator/runtime/process/process.h"

// A table whose one cell is always free, as a table's cells are while it scrolls.
@interface OneCellTable : UITableView {
  @public
    UITableViewCell* cell;
}
@end

@implementation OneCellTable
- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier {
    return cell;
}
@end

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSamplePhotos = "/var/lib/AccountsService/icons";
constexpr int kCalls = 20;

[[noreturn]] void fail(const std::string& message) {
    // Standard error is the phone's log once the library is loaded.
    std::printf("bench: %s\n", message.c_str());
    std::exit(1);
}

void requireDone(const phone::Status& status) {
    if (!status) fail(phone::problemOf(status));
}

// The file as a thumbnail of the kind that nearly every contact has on a phone; empty when it is no picture.
std::string jpegThumbnail(const fs::path& file) {
    constexpr unsigned kWhite = 0xFFFFFF;
    GdkPixbuf* picture = gdk_pixbuf_new_from_file(file.c_str(), nullptr);
    if (picture == nullptr) return {};
    constexpr int kSide = maker::kThumbnailSide;
    GdkPixbuf* opaque = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, kSide, kSide);
    gdk_pixbuf_composite_color(picture, opaque, 0, 0, kSide, kSide, 0, 0, double(kSide) / gdk_pixbuf_get_width(picture),
                               double(kSide) / gdk_pixbuf_get_height(picture), GDK_INTERP_BILINEAR, 255, 0, 0, kSide,
                               kWhite, kWhite);
    gchar* bytes = nullptr;
    gsize length = 0;
    gdk_pixbuf_save_to_buffer(opaque, &bytes, &length, "jpeg", nullptr, "quality", "85", nullptr);
    std::string thumbnail(bytes, length);
    g_free(bytes);
    for (GdkPixbuf* each : {picture, opaque}) g_object_unref(each);
    return thumbnail;
}

std::vector<std::string> thumbnails() {
    std::vector<std::string> made;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(kSamplePhotos, error)) {
        if (std::string thumbnail = jpegThumbnail(entry.path()); !thumbnail.empty()) made.push_back(thumbnail);
    }
    if (made.empty()) made.push_back(maker::plainThumbnail(0x2E6F95));
    return made;
}

void fillBook(maker::AddressBookBuilder& book) {
    const std::vector<std::string> photos = thumbnails();
    for (int contact = 1; contact <= kPhotos + kPlain + kLinked; ++contact) {
        maker::Person person;
        person.first = "Ann" + std::to_string(contact);
        person.last = "Lee" + std::to_string(contact);
        const int linkedWith = contact - kPhotos - kPlain;
        if (linkedWith > 0) person.linkedAs = "person" + std::to_string(linkedWith);
        if (contact <= kLinked) person.linkedAs = "person" + std::to_string(contact);
        auto added = book.addPerson(person);
        if (!added) fail(phone::problemOf(added));
        if (contact <= kPhotos)
            requireDone(book.setThumbnail(contact, photos[static_cast<std::size_t>(contact) % photos.size()]));
    }
    for (int number = 1; number <= kCalls; ++number) {
        maker::Call call;
        call.address = "+1 212 555 01" + std::to_string(10 + number);
        call.date = 1e9 + number * 1000;
        call.contact = number;
        call.name = "Ann Lee";
        auto added = book.addCall(call);
        if (!added) fail(phone::problemOf(added));
    }
}

}  // namespace

void makePhone(const fs::path& root) {
    maker::RootOptions options;
    options.root = root;
    options.noCalls = true;
    options.extension.library = ZELKA_LIBRARY;
    options.extension.filter = ZELKA_FILTER;
    options.extension.settingsBundle = ZELKA_BUNDLE;
    auto made = maker::makeRoot(options);
    if (!made) fail(phone::problemOf(made));
    auto book = maker::AddressBookBuilder::open(root);
    if (!book) fail(phone::problemOf(book));
    fillBook(*book);
    requireDone(book->finish());
}

void boot(const fs::path& root) { phone::boot(root, "com.apple.springboard"); }

double inject() {
    const auto start = std::chrono::steady_clock::now();
    const std::vector<std::string> loaded = phone::injectLibraries();
    const auto end = std::chrono::steady_clock::now();
    if (loaded.size() != 1) fail("the library was not loaded");
    return std::chrono::duration<double, std::nano>(end - start).count();
}

TemporaryRoot::TemporaryRoot() {
    std::string name = (fs::temp_directory_path() / "zelka-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) fail("no temporary directory");
    path_ = fs::path(name) / "phone";
}

TemporaryRoot::~TemporaryRoot() {
    std::error_code error;
    fs::remove_all(path_.parent_path(), error);
}

SilentHost theHost;

namespace {

id rowOrSilence(id self, SEL selector, id table, id path) {
    if (theHost.isSilent) return theHost.cell;
    return reinterpret_cast<id (*)(id, SEL, id, id)>(theHost.row)(self, selector, table, path);
}

void layoutOrSilence(id self, SEL selector) {
    if (!theHost.isSilent) reinterpret_cast<void (*)(id, SEL)>(theHost.layout)(self, selector);
}

IMP putBefore(const Method& method, IMP replacement) {
    IMP before = nullptr;
    MSHookMessageEx(objc_getClass(method.className), method.selector, replacement, &before);
    return before;
}

}  // namespace

void HostMethods::readHost() {
    theHost.row = putBefore(recentsRow, reinterpret_cast<IMP>(rowOrSilence));
    theHost.layout = putBefore(recentsLayout, reinterpret_cast<IMP>(layoutOrSilence));
    for (Method* each : {&recentsRow, &recentsLayout, &contactsRow, &contactsLayout, &favorite})
        each->host = class_getMethodImplementation(objc_getClass(each->className), each->selector);
}

void HostMethods::readHooked() {
    for (Method* each : {&recentsRow, &recentsLayout, &contactsRow, &contactsLayout, &favorite}) {
        each->hooked = class_getMethodImplementation(objc_getClass(each->className), each->selector);
        if (each->hooked == each->host) fail(std::string(each->className) + " is not hooked");
    }
}

namespace {

OneCellTable* makeTable() {
    auto* table = [[OneCellTable alloc] initWithFrame:CGRectMake(0, 0, 375, 500)];
    [CallBarWindow() addSubview:table];
    return table;
}

NSIndexPath* pathOfNamedCaller(CallBarABViewController* recents) {
    NSUInteger row = 0;
    for (NSDictionary* entry in [recents shownEntries]) {
        id call = [[entry objectForKey:@"calls"] objectAtIndex:0];
        if ([call respondsToSelector:sel_registerName("uid")] &&
            [call respondsToSelector:sel_registerName("callerName")])
            return [NSIndexPath indexPathForRow:(NSInteger)row inSection:0];
        ++row;
    }
    fail("no call names its contact and its caller");
}

}  // namespace

Screens makeScreens() {
    Screens screens;
    UIApplicationStart(nil, nil);
    CallBarControllerModern* controller = CallBarController();
    [[controller recentsButton] sendActionsForControlEvents:UIControlEventTouchUpInside];
    [CallBarWindow() layoutIfNeeded];
    phone::settle(10);
    CallBarABViewController* recents = [controller recentsController];
    OneCellTable* table = makeTable();
    screens.table = table;
    screens.recentsPath = [pathOfNamedCaller(recents) retain];
    screens.recentsCell = [[recents tableView:table cellForRowAtIndexPath:screens.recentsPath] retain];
    table->cell = screens.recentsCell;
    theHost.cell = screens.recentsCell;
    [table addSubview:screens.recentsCell];

    [[controller contactsButton] sendActionsForControlEvents:UIControlEventTouchUpInside];
    [CallBarWindow() layoutIfNeeded];
    phone::settle(10);
    OneCellTable* members = makeTable();
    screens.membersTable = members;
    screens.membersPath = [[NSIndexPath indexPathForRow:0 inSection:0] retain];
    screens.membersSource = [[[controller membersController] tableView] dataSource];
    screens.membersCell = [[screens.membersSource tableView:members cellForRowAtIndexPath:screens.membersPath] retain];
    members->cell = screens.membersCell;
    [members addSubview:screens.membersCell];
    [[controller recentsButton] sendActionsForControlEvents:UIControlEventTouchUpInside];
    [CallBarWindow() layoutIfNeeded];
    phone::settle(10);
    return screens;
}

}  // namespace bench

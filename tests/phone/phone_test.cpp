#include "tests/phone/phone_test.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "simulator/maker/make_root.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "tests/support/library_path.h"
#include "tests/support/property_list.h"

namespace test {
namespace {

constexpr const char* kNotifications[][2] = {
    {"ZelkaCBEnabled", "com.norvex.ZelkaCBEnabledNotification"},
    {"ZelkaCBEnabledRoundedPictures", "com.norvex.ZelkaCBRoundedPicturesEnabledNotification"},
    {"ZelkaCBEnabledMonogramPictures", "com.norvex.ZelkaCBMonogramPicturesEnabledNotification"},
    {"ZelkaCBEnabledFavorites", "com.norvex.ZelkaCBFavoritesEnabledNotification"},
    {"ZelkaCBEnabledRecents", "com.norvex.ZelkaCBRecentsEnabledNotification"},
    {"ZelkaCBEnabledContacts", "com.norvex.ZelkaCBContactsEnabledNotification"}};

void append(std::string& bytes, unsigned value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

maker::Person person(std::optional<std::string> first, std::optional<std::string> last, const char* number) {
    maker::Person result;
    result.first = std::move(first);
    result.last = std::move(last);
    if (number != nullptr) result.phones = {{number, "_$!<Mobile>!$_"}};
    return result;
}

maker::Call call(const char* address, int daysAgo, maker::CallKind kind, int contact) {
    maker::Call result;
    result.address = address;
    result.date = 1433851200 - daysAgo * 86400.0;  // 2015-06-09 12:00 UTC
    result.kind = kind;
    result.duration = kind == maker::CallKind::missed ? 0 : 60;
    result.contact = contact;
    return result;
}

}  // namespace

std::string picture(const std::string& colour) {
    constexpr unsigned kSide = 4;
    const unsigned rgb = static_cast<unsigned>(std::strtoul(colour.c_str() + 1, nullptr, 16));
    std::string bytes = "BM";
    append(bytes, 54 + kSide * kSide * 4, 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);
    for (const unsigned value : {40u, kSide, kSide}) append(bytes, value, 4);
    append(bytes, 1, 2);
    append(bytes, 32, 2);
    for (const unsigned value : {0u, kSide * kSide * 4, 2835u, 2835u, 0u, 0u}) append(bytes, value, 4);
    for (unsigned i = 0; i < kSide * kSide; ++i) append(bytes, rgb | 0xFF000000U, 4);
    return bytes;
}

PhoneTest::PhoneTest() {
    std::string name = (std::filesystem::temp_directory_path() / "zelka-phone-XXXXXX").string();
    folder_ = std::filesystem::canonical(::mkdtemp(name.data()));
    root_ = folder_ / "phone";
    for (const char* key : kSettingsKeys) switches_[key] = true;
}

PhoneTest::~PhoneTest() {
    std::error_code ignored;
    std::filesystem::permissions(root_ / kSettingsFile, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(folder_, ignored);
}

void PhoneTest::makePhone(const std::string& device, bool rightToLeft) {
    maker::RootOptions made;
    made.root = root_;
    made.noCalls = true;
    made.device = device;
    made.rightToLeft = rightToLeft;
    made.extension.library = libraryPath();
    made.extension.filter = ZELKA_FILTER;
    made.extension.settingsBundle = ZELKA_BUNDLE;
    made.extension.settingsEntry = ZELKA_ENTRY;
    const auto report = maker::makeRoot(made);
    ASSERT_TRUE(report) << phone::problemOf(report);
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root_).value();
    fill(book);
    must(book.finish());
}

void PhoneTest::fill(maker::AddressBookBuilder& book) {
    std::vector<maker::Person> people{person("Ann", "Lee", "+1 212 555 0142"),
                                      person("Bob", "Stone", "(917) 555-0186"),
                                      person("Cara", std::nullopt, nullptr),
                                      person(std::nullopt, std::nullopt, nullptr),
                                      person(std::nullopt, std::nullopt, "305 555 0164"),
                                      person("Tom", "Twin", "206 555 0114"),
                                      person("Tom", "Twin", nullptr),
                                      person("Dora", "Fox", nullptr)};
    people[kCara - 1].emails = {{"cara@example.com", ""}};
    people[kAcme - 1].organization = "Acme Pumps";
    people[kAcme - 1].phones = {{"718-555-0110", ""}};
    for (size_t i = 0; i < people.size(); ++i) {
        people[i].modified = static_cast<double>(1000 + i);
        ASSERT_EQ(book.addPerson(people[i]).value(), static_cast<int>(i) + 1);
    }
    must(book.link({kTom, kTwin}));
    must(book.setThumbnail(kAnn, picture(kRed)));
    must(book.setThumbnail(kTwin, picture(kBlue)));
    must(book.setThumbnail(kDora, picture(kGreen)));
    // What a call object answers goes by its row: the first answers a record ID, the second nothing, the third uid.
    using maker::CallKind;
    for (const maker::Call& each :
         {call("+1 212 555 0142", 0, CallKind::missed, kAnn), call("+1 646 555 0199", 1, CallKind::missed, -1),
          call("(917) 555-0186", 2, CallKind::outgoing, kBob), call("718-555-0110", 3, CallKind::outgoing, kAcme),
          call("cara@example.com", 4, CallKind::incoming, kCara), call("206 555 0114", 5, CallKind::missed, kTom),
          call("305 555 0164", 6, CallKind::incoming, kNobody)}) {
        ASSERT_TRUE(book.addCall(each));
    }
}

void PhoneTest::loadInto(const std::string& bundleIdentifier) {
    const std::string file = "Library/MobileSubstrate/DynamicLibraries/ZelkaCB.plist";
    std::string filter = read(file);
    const size_t at = filter.find("</array>");
    ASSERT_NE(at, std::string::npos);
    write(file, filter.insert(at, "<string>" + bundleIdentifier + "</string>"));
}

hosts::HostOptions PhoneTest::options() const {
    hosts::HostOptions result;
    result.root = root_;
    result.environment = {{"TZ", "UTC"}};
    return result;
}

hosts::HostOptions PhoneTest::optionsAs(const std::string& bundleIdentifier) const {
    hosts::HostOptions result = options();
    result.bundleIdentifier = bundleIdentifier;
    return result;
}

void PhoneTest::set(const std::string& key, bool on) {
    switches_[key] = on;
    std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>";
    for (const auto& [name, value] : switches_) list += "<key>" + name + "</key>" + (value ? "<true/>" : "<false/>");
    write(std::string(kSettingsFile) + ".part", list + "</dict></plist>\n");
    std::filesystem::rename(host(kSettingsFile) + ".part", host(kSettingsFile));
    for (const auto& [name, notification] : kNotifications)
        if (key == name) post(notification);
}

void PhoneTest::post(const std::string& notification) const {
    ASSERT_EQ(phone::problemOf(phone::postNotification(root_, notification)), "");
}

Json PhoneTest::show(HostProcess& host, const std::string& screen, bool editing) const {
    Json command{{"do", "show"}, {"screen", screen}, {"editing", editing}};
    if (screen.rfind("search ", 0) == 0) command = {{"do", "show"}, {"screen", "search"}, {"text", screen.substr(7)}};
    host.call(command);
    return screen == "favorites" ? favorites(host) : rows(host);
}

void PhoneTest::settle(HostProcess& host) const {
    // Laying out at the end of the first wait may fetch rows anew, and these queue their pictures.
    host.call({{"do", "settle"}, {"timeout", 20}});
    host.call({{"do", "settle"}, {"timeout", 20}});
}

Json PhoneTest::rows(HostProcess& host, bool sources) const {
    settle(host);
    return host.call({{"do", "rows"}, {"sources", sources}}).at("rows");
}

Json PhoneTest::favorites(HostProcess& host) const {
    settle(host);
    return host.call({{"do", "favorites"}}).at("buttons");
}

std::string PhoneTest::host(const std::string& phonePath) const { return (root_ / phonePath).string(); }

void PhoneTest::write(const std::string& phonePath, const std::string& contents) const {
    std::filesystem::create_directories((root_ / phonePath).parent_path());
    std::ofstream(host(phonePath), std::ios::binary) << contents;
}

std::string PhoneTest::read(const std::string& phonePath) const {
    std::ifstream file(host(phonePath), std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

int PhoneTest::count(const std::string& text, const std::string& part) {
    int found = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++found;
    return found;
}

Json rowOf(const Json& rows, int contact) {
    for (const Json& row : rows)
        if (row.at("contact") == contact) return row;
    ADD_FAILURE() << "no row of contact " << contact;
    return Json{{"contact", contact}, {"picture", nullptr}, {"hasPictureView", false}};
}

std::string sourceOf(const Json& row) {
    const Json& picture = row.at("picture");
    return picture.is_null() ? "none" : picture.at("source").get<std::string>();
}

std::string centreOf(const Json& row) {
    const Json& picture = row.at("picture");
    return picture.is_null() ? "none" : picture.at("centre").get<std::string>();
}

}  // namespace test

#include "src/hooks/recents_list.h"

#include "src/cache/image_cache.h"
#include "src/cache/queue.h"
#include "src/changes/settings_changes.h"
#include "src/contacts/contact_ids.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/hooks/picture_view.h"
#include "src/platform/dispatch.h"
#include "src/platform/weak.h"
#include "src/render/monograms.h"
#include "src/settings/settings.h"

namespace hooks {
namespace {

// Where a new picture view starts, in points; the cell's layout centres it.
constexpr CGFloat kPictureTop = 2.0;

bool picturesWanted() {
    ZLKCBSettings settings = ZLKCBSettings::sharedSettings();
    return settings.isZelkaCBEnabled() && settings.isShowPicturesOnRecents();
}

// The value of an instance variable that the host publishes no accessor for; zero where it is missing.
void* hostVariable(NSObject host, const char* name) {
    void* value = nullptr;
    object_getInstanceVariable(host.object, name, &value);
    return value;
}

bool hostFlag(NSObject host, const char* name) {
    // The runtime copies a whole pointer's worth, of which a BOOL is the first byte.
    void* value = hostVariable(host, name);
    return *reinterpret_cast<const unsigned char*>(&value) != 0;
}

UIImageView placePictureView(UITableViewCell cell, UIImageView pictureView) {
    bool rightToLeft = UIApplication::shared().isRightToLeft();
    if (!pictureView) pictureView = addPictureView(cell, CGRect{});
    CGFloat x = rightToLeft ? cell.defaultAccessoryView().frame().origin.x - kPictureSize : kPictureLeading;
    pictureView.setFrame(makeRect(x, kPictureTop, kPictureSize, kPictureSize));
    return pictureView;
}

// The entry shown in that row, or nil when the host has fewer.
NSDictionary entryInRow(CallBarABViewController controller, NSInteger row) {
    const char* list = hostFlag(controller, "onlyMissed") ? "_missedEntries" : "_allEntries";
    NSArray entries{{static_cast<id>(hostVariable(controller, list))}};
    auto index = static_cast<NSUInteger>(row);
    return entries.count() > index ? entries.at<NSDictionary>(index) : NSDictionary{};
}

std::int32_t contactIDOf(NSDictionary entry, NSObject call) {
    if (respondsTo(call, selector<"uid">())) return static_cast<std::int32_t>(send<NSInteger, "uid">(call));
    if (respondsTo(call, selector<"addressBookRecordId">())) {
        return static_cast<std::int32_t>(send<NSNumber, "addressBookRecordId">(call).integerValue());
    }
    return ZelkaCBUtils::getContactID(entry.objectFor<NSString>(literal<"address">()));
}

NSString monogramTextOf(NSObject call, std::int32_t contactID) {
    if (!monogramsWanted()) return {};
    if (respondsTo(call, selector<"callerName">())) {
        return ZelkaCBUtils::monogramTextFromName(send<NSString, "callerName">(call));
    }
    return ZelkaCBUtils::monogramTextFromAB(contactID);
}

UIImage placeholder(NSString monogramText) {
    return monogramsWanted() ? ZelkaCBUtils::monogramImage(monogramText, 0) : ZelkaCBUtils::recentPicture();
}

// What a background load carries from the row to the queue and back to the main thread.
struct PictureLoad {
    std::int32_t contactID;
    Owned<NSString> monogramText;
    Owned<UIImage> picture;
    // A cell that has gone by the time the picture comes is let go, not kept waiting.
    WeakReference<UITableViewCell> cell;
};

// The cell may show another row by now; its next row asks for its own picture and replaces this one.
void showLoaded(const PictureLoad& load) {
    Owned<UITableViewCell> cell = load.cell.get();
    pictureViewOf(cell.get()).setImage(load.picture.get());
}

void loadPicture(PictureLoad& load) {
    if (load.contactID >= 1) {
        load.picture =
            Owned<UIImage>::retain(ZelkaCBUtils::getContactImageOnly(load.contactID, load.monogramText.get(), false));
    }
    if (!load.picture) return;
    dispatchToMain(makeBlock([load = std::move(load)] { showLoaded(load); }));
}

void queueLoad(UITableViewCell cell, std::int32_t contactID, NSString monogramText) {
    PictureLoad load{contactID, Owned<NSString>::retain(monogramText), {}, WeakReference<UITableViewCell>(cell)};
    Owned<Block> task = makeBlock([load = std::move(load)]() mutable { loadPicture(load); });
    ZelkaCBUtils::queue().add(NSBlockOperation::withBlock(task.get()));
}

void showPicture(UITableViewCell cell, UIImageView pictureView, NSDictionary entry) {
    NSObject call = entry.objectFor<NSArray>(literal<"calls">()).first();
    std::int32_t contactID = contactIDOf(entry, call);
    if (contactID < 1) {
        pictureView.setImage(ZelkaCBUtils::getMonogramImage());
        return;
    }
    UIImage cached = ZelkaCBUtils::getContactImageInCache(contactID);
    NSString monogramText = monogramTextOf(call, contactID);
    if (cached) {
        pictureView.setImage(cached);
        return;
    }
    pictureView.setImage(placeholder(monogramText));
    queueLoad(cell, contactID, monogramText);
}

void decorate(CallBarABViewController controller, UITableViewCell cell, NSInteger row) {
    if (!isKindOf(cell, objc_getClass("CallBarTableViewTransparentCell"))) return;
    UIImageView pictureView = pictureViewOf(cell);
    if (!picturesWanted()) {
        removePictureView(pictureView);
        return;
    }
    pictureView = placePictureView(cell, pictureView);
    if (NSDictionary entry = entryInRow(controller, row)) showPicture(cell, pictureView, entry);
}

}  // namespace

void recentsViewDidLoad(CallBarABViewController self, SEL command) {
    RecentsViewDidLoad::host(self, command);
    NSNotificationCenter::shared().addObserver(self, selector<"zelkaCBSettingsChanged:">(),
                                               settingsChangedNotification());
}

void recentsDealloc(CallBarABViewController self, SEL command) {
    // The host first, by design: the notification centre takes the address alone and never messages it.
    RecentsDealloc::host(self, command);
    NSNotificationCenter::shared().removeObserver(self);
}

UITableViewCell recentsCell(CallBarABViewController self, SEL command, UITableView table, NSIndexPath indexPath) {
    UITableViewCell cell = RecentsCell::host(self, command, table, indexPath);
    decorate(self, cell, indexPath.row());
    return cell;
}

}  // namespace hooks

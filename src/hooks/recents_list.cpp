#include "src/hooks/recents_list.h"

#include "src/cache/image_cache.h"
#include "src/cache/queue.h"
#include "src/changes/settings_changes.h"
#include "src/contacts/contact_ids.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/hooks/picture_view.h"
#include "src/platform/dispatch.h"
#include "src/platform/foundation/NSNotificationCenter.h"
#include "src/platform/foundation/NSOperation.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIApplication.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UIImageView.h"
#include "src/platform/weak.h"
#include "src/render/monograms.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

// Where a new picture view starts, in points; the cell's layout centres it.
constexpr CGFloat kPictureTop = 2.0;

UIImageView placePictureView(UITableViewCell cell, UIImageView pictureView) {
    bool rightToLeft = UIApplication::shared().isRightToLeft();
    if (!pictureView) pictureView = addPictureView(cell, CGRect{});
    CGFloat x = rightToLeft ? cell.defaultAccessoryView().frame().origin.x - kPictureSize : kPictureLeading;
    pictureView.setFrame(makeRect(x, kPictureTop, kPictureSize, kPictureSize));
    return pictureView;
}

std::int32_t contactIDOf(CallBarEntry entry, CallBarCall call) {
    if (call.hasUid()) return static_cast<std::int32_t>(call.uid());
    if (call.hasAddressBookRecordId()) return static_cast<std::int32_t>(call.addressBookRecordId().integerValue());
    return getContactID(entry.address());
}

NSString monogramTextOf(CallBarCall call, std::int32_t contactID) {
    if (!monogramsWanted()) return {};
    return call.hasCallerName() ? monogramTextFromName(call.callerName()) : monogramTextFromAB(contactID);
}

UIImage placeholder(NSString monogramText) {
    return monogramsWanted() ? monogramImage(monogramText, 0) : recentPicture();
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
            retain(getContactImageOnly(load.contactID, load.monogramText.get(), false, {.font = systemMonogramFont()}));
    }
    if (!load.picture) return;
    dispatchToMain(makeBlock([load = std::move(load)] { showLoaded(load); }));
}

void queueLoad(UITableViewCell cell, std::int32_t contactID, NSString monogramText) {
    PictureLoad load{contactID, retain(monogramText), {}, WeakReference<UITableViewCell>(cell)};
    Owned<Block> task = makeBlock([load = std::move(load)]() mutable { loadPicture(load); });
    queue().add(NSBlockOperation::withBlock(task.get()));
}

void showPicture(UITableViewCell cell, UIImageView pictureView, CallBarEntry entry) {
    CallBarCall call = entry.firstCall();
    std::int32_t contactID = contactIDOf(entry, call);
    if (contactID < 1) {
        pictureView.setImage(getMonogramImage());
        return;
    }
    UIImage cached = getContactImageInCache(contactID);
    NSString monogramText = monogramTextOf(call, contactID);
    if (cached) {
        pictureView.setImage(cached);
        return;
    }
    pictureView.setImage(placeholder(monogramText));
    queueLoad(cell, contactID, monogramText);
}

void decorate(CallBarABViewController controller, UITableViewCell cell, NSInteger row) {
    if (!dynamicCast<CallBarTableViewTransparentCell>(cell)) return;
    UIImageView pictureView = pictureViewOf(cell);
    if (!picturesWantedOn(List::recents)) {
        removePictureView(pictureView);
        return;
    }
    pictureView = placePictureView(cell, pictureView);
    if (CallBarEntry entry = controller.entryInRow(row)) showPicture(cell, pictureView, entry);
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

void recentsSettingsChanged(CallBarABViewController self, SEL, NSObject) { reloadOnMainThread(self.tableView()); }

UITableViewCell recentsCell(CallBarABViewController self, SEL command, UITableView table, NSIndexPath indexPath) {
    UITableViewCell cell = RecentsCell::host(self, command, table, indexPath);
    decorate(self, cell, indexPath.row());
    return cell;
}

}  // namespace zelka

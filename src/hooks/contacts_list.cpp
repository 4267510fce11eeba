#include "src/hooks/contacts_list.h"

#include "src/cache/image_cache.h"
#include "src/changes/settings_changes.h"
#include "src/contacts/initials.h"
#include "src/contacts/lookup.h"
#include "src/hooks/parent_table.h"
#include "src/hooks/picture_view.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/log.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UIImageView.h"
#include "src/platform/uikit/UIView.h"
#include "src/render/monograms.h"
#include "src/settings/settings.h"
#include "src/util/device.h"
#include "src/util/process.h"

namespace zelka {
namespace {

// All in points.
constexpr CGFloat kPictureTop = 1.0;
constexpr CGFloat kPictureEditingLeading = 37.0;
constexpr CGFloat kNameLeading = 40.0;
constexpr CGFloat kNameRightMargin = 40.0;
constexpr CGFloat kEditingMargin = 25.0;
constexpr CGFloat kMargin = 15.0;
// A name whose right edge falls in this range was cut short by the picture's width; it gets that width back.
constexpr double kWideningStart = 207.0;
constexpr double kWideningEnd = 247.0;
constexpr float kWidening = 40.0F;

// Search results differ from the full list in these two ways, and in no other.
struct ListRules {
    bool needsSystem7;
    bool logsMonograms;
};
constexpr ListRules kFullList{false, true};
constexpr ListRules kSearchResults{true, false};

bool picturesWanted() { return picturesWantedOn(List::contacts); }

std::int32_t contactIDOf(ABMemberCell cell) { return cell.person().recordID(); }

void placeNameView(ABMemberCell cell) {
    UIView nameView = cell.hasContactNameView() ? cell.contactNameView() : cell.contentView();
    CGRect frame = nameView.frame();
    CGFloat margin = cell.isEditing() ? kEditingMargin : kMargin;
    CGFloat width = screenSize().width - kNameRightMargin - margin;
    nameView.setFrame(makeRect(kNameLeading, frame.origin.y, width, frame.size.height));
}

void placePicture(ABMemberCell cell, UIImageView picture) {
    bool areBothEditing = cell.isEditing() && parentTableView(cell).isEditing();
    CGFloat x = areBothEditing ? kPictureEditingLeading : kPictureLeading;
    picture.setFrame(makeRect(x, kPictureTop, kPictureSize, kPictureSize));
}

UIImage cachedPicture(std::int32_t contactID) { return contactID >= 1 ? getContactImageInCache(contactID) : UIImage{}; }

void layOutMember(ABMemberCell cell, SEL command) {
    UIImageView picture = pictureViewOf(cell);
    if (!picturesWanted()) {
        picture.setImage(UIImage{});
        MemberLayout::host(cell, command);
        return;
    }
    placeNameView(cell);
    placePicture(cell, picture);
    UIImage cached = cachedPicture(contactIDOf(cell));
    picture.setImage(cached ? cached : recentPicture());
}

// What stands for a contact without a photo. Either way the cache holds it under the contact from now on.
UIImage pictureWithoutPhoto(std::int32_t contactID, ListRules rules) {
    if (monogramsWanted()) {
        NSString text = monogramTextFromAB(contactID);
        if (rules.logsMonograms) logParts("Monograms turned on, monogramText: ", text);
        return monogramImage(text, contactID);
    }
    if (rules.logsMonograms) logParts("Monograms turned off...");
    UIImage placeholder = recentPicture();
    setContactImage(placeholder, contactID);
    return placeholder;
}

void findPicture(ABMemberCell cell, UIImageView picture, std::int32_t contactID, ListRules rules) {
    NSData thumbnail = cell.person().preferredPersonForPhoto().preferredPhotoThumbnail();
    if (thumbnail.length() == 0) {
        picture.setImage(pictureWithoutPhoto(contactID, rules));
    } else if (UIImage photo = getImageFromImageData(thumbnail, contactID)) {
        picture.setImage(photo);
    }
}

void showPicture(ABMemberCell cell, UIImageView picture, ListRules rules) {
    std::int32_t contactID = contactIDOf(cell);
    if (UIImage cached = cachedPicture(contactID)) {
        picture.setImage(cached);
        return;
    }
    picture.setImage(defaultImage());
    if (contactID >= 1) findPicture(cell, picture, contactID, rules);
}

void decorate(UITableView table, UITableViewCell cell, ListRules rules) {
    if (!isServedProcess()) return;
    if (!membersTableView.load()) membersTableView = keepForever(retain(table));
    if (rules.needsSystem7 && !isIOS_7()) return;
    auto member = dynamicCast<ABMemberCell>(cell);
    if (!member) return;
    UIImageView picture = pictureViewOf(cell);
    if (!picturesWanted()) {
        removePictureView(picture);
        return;
    }
    if (!picture) picture = addPictureView(cell, makeRect(kPictureLeading, kPictureTop, kPictureSize, kPictureSize));
    showPicture(member, picture, rules);
}

}  // namespace

CGSize memberDrawText(ABMemberCell self, SEL command, NSString text, UIColor color, UIColor shadowColor,
                      CGSize shadowOffset, CGPoint point, float width, UIFont font, NSInteger lineBreakMode) {
    if (isServedProcess() && picturesWanted()) {
        double rightEdge = static_cast<double>(point.x) + static_cast<double>(width);
        if (rightEdge >= kWideningStart && rightEdge < kWideningEnd) width += kWidening;
    }
    return MemberDrawText::host(self, command, text, color, shadowColor, shadowOffset, point, width, font,
                                lineBreakMode);
}

void memberLayout(ABMemberCell self, SEL command) {
    MemberLayout::host(self, command);
    if (!isIOS_7()) return;
    AutoreleasePool pool;
    if (isServedProcess()) layOutMember(self, command);
}

UITableViewCell memberCell(NSObject self, SEL command, UITableView table, NSIndexPath indexPath) {
    UITableViewCell cell = MemberCell::host(self, command, table, indexPath);
    decorate(table, cell, kFullList);
    return cell;
}

UITableViewCell foundMemberCell(NSObject self, SEL command, UITableView table, NSIndexPath indexPath) {
    UITableViewCell cell = FoundMemberCell::host(self, command, table, indexPath);
    decorate(table, cell, kSearchResults);
    return cell;
}

}  // namespace zelka

#include "src/hooks/transparent_cell.h"

#include "src/hooks/picture_view.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/uikit/UIApplication.h"
#include "src/platform/uikit/UIImageView.h"
#include "src/platform/uikit/UILabel.h"
#include "src/platform/uikit/UITableView.h"
#include "src/platform/uikit/UIView.h"
#include "src/settings/settings.h"
#include "src/util/device.h"

namespace zelka {
namespace {

// All in points.
constexpr CGFloat kPictureTop = 2.0;
constexpr CGFloat kRightToLeftGap = 8.0;
constexpr CGFloat kRightToLeftEditingGap = 30.0;
constexpr CGFloat kNameGap = 10.0;
constexpr CGFloat kDetailTop = 27.0;
constexpr CGFloat kIconGap = 5.0;
constexpr CGFloat kIconDrop = 4.0;

template <class Visit>
void forEachSubview(UIView container, Visit visit) {
    NSArray subviews = container.subviews();
    for (NSUInteger index = 0, count = subviews.count(); index < count; ++index) visit(subviews.at<UIView>(index));
}

bool hasExactClass(UIView view, NSString className) { return view.className().equals(className); }

bool showsText(UIView label) { return static_cast<bool>(as<UILabel>(label).text()); }

// A missing picture view has an empty frame, to which the labels are placed all the same.
CGRect placePicture(UITableViewCell cell) {
    UIImageView picture = pictureViewOf(cell);
    CGSize size = picture.frame().size;
    CGFloat x = kPictureLeading;
    if (UIApplication::shared().isRightToLeft()) {
        CGFloat gap = cell.isEditing() ? kRightToLeftEditingGap : kRightToLeftGap;
        x = cell.defaultAccessoryView().frame().origin.x - kPictureSize - gap;
    }
    CGFloat y = (cell.frame().size.height - size.height) / 2;
    picture.setFrame(makeRect(x, y, size.width, size.height));
    return picture.frame();
}

void placeNameLabel(UIView contentView, CGRect picture, bool isSystem8) {
    NSString labelClass = isSystem8 ? literal<"UITableViewLabel">() : literal<"UILabel">();
    NSArray subviews = contentView.subviews();
    for (NSUInteger index = 0, count = subviews.count(); index < count; ++index) {
        auto label = subviews.at<UIView>(index);
        if (!hasExactClass(label, labelClass) || !showsText(label)) continue;
        label.setTag(kNameLabelTag);
        CGRect frame = label.frame();
        frame.origin.x = picture.origin.x + picture.size.width + kNameGap;
        label.setFrame(frame);
        return;
    }
}

void placeDetailLabel(UIView label, UIView nameLabel) {
    label.setTag(kDetailLabelTag);
    label.sizeToFit();
    CGSize size = label.frame().size;
    label.setFrame(makeRect(nameLabel.frame().origin.x, kDetailTop, size.width, size.height));
}

// The name ends where the date begins.
void clipNameLabel(UIView nameLabel, UIView dateLabel) {
    CGRect name = nameLabel.frame();
    CGFloat overlap = name.origin.x + name.size.width - dateLabel.frame().origin.x;
    if (overlap > 0) name.size.width -= overlap;
    nameLabel.setFrame(name);
}

void placeDetailAndDate(UIView container, UIView nameLabel) {
    Class labelClass = platformClass<UILabel>();
    forEachSubview(container, [&](UIView view) {
        if (hasExactClass(view, literal<"UIDateLabel">())) {
            clipNameLabel(nameLabel, view);
        } else if (view.isKindOf(labelClass) && showsText(view)) {
            placeDetailLabel(view, nameLabel);
        }
    });
}

// The picture view is an image view too; only its tag distinguishes it from the host's call-type icon.
void placeIcon(UIView contentView, CGRect detail) {
    Class imageViewClass = platformClass<UIImageView>();
    forEachSubview(contentView, [&](UIView view) {
        if (!view.isKindOf(imageViewClass) || view.tag() > 0) return;
        CGSize size = view.frame().size;
        view.setFrame(makeRect(detail.origin.x + detail.size.width + kIconGap, detail.origin.y + kIconDrop, size.width,
                               size.height));
    });
}

// The order matters: the name follows the picture, the date clips the name, the detail stands under the name, and the
// icon follows the detail.
void makeRoom(UITableViewCell cell, CGRect picture) {
    bool isSystem8 = isIOS_8();
    UIView contentView = cell.contentView();
    placeNameLabel(contentView, picture, isSystem8);
    // On system 7 a scrolling view stands between the cell and its content view, and holds the host's labels.
    UIView container = isSystem8 ? cell : contentView.superview();
    placeDetailAndDate(container, cell.withTag<UIView>(kNameLabelTag));
    placeIcon(contentView, cell.withTag<UIView>(kDetailLabelTag).frame());
}

}  // namespace

CallBarTableViewTransparentCell cellInit(CallBarTableViewTransparentCell self, SEL command, NSInteger style,
                                         NSString reuseIdentifier) {
    auto made = CellInit::host(self, command, style, reuseIdentifier);
    self.initialize();
    return made;
}

void cellInitialize(CallBarTableViewTransparentCell self, SEL) {
    if (!isZelkaCBOnlyOn()) return;
    addPictureView(self.contentView(), makeRect(kPictureLeading, kPictureTop, kPictureSize, kPictureSize));
}

void cellLayout(CallBarTableViewTransparentCell self, SEL command) {
    CellLayout::host(self, command);
    if (!picturesWantedOn(List::recents)) return;
    CGRect picture = placePicture(self);
    if (isIOS_7()) makeRoom(self, picture);
}

}  // namespace zelka

#include "src/hooks/picture_view.h"

#include "src/settings/settings.h"

namespace hooks {

UIImageView addPictureView(UIView container, CGRect frame) {
    Owned<UIImageView> view = UIImageView::withFrame(frame);
    view->setTag(kPictureTag);
    container.addSubview(view.get());
    return view.get();
}

void removePictureView(UIImageView pictureView) {
    pictureView.setImage(UIImage{});
    pictureView.removeFromSuperview();
}

bool monogramsWanted() {
    ZLKCBSettings settings = ZLKCBSettings::sharedSettings();
    return settings.isZelkaCBEnabled() && settings.isMonogramEnabled();
}

}  // namespace hooks

#include "src/hooks/picture_view.h"

#include "src/render/shaping.h"
#include "src/util/preference_bundle.h"

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

UIImage recentPlaceholder() { return ZelkaCBUtils::getImage(bundlePicturePath(literal<"recent">())); }

}  // namespace hooks

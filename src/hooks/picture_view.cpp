#include "src/hooks/picture_view.h"

#include "src/platform/owned.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

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

}  // namespace zelka

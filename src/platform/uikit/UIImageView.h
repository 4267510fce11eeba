// Views of one picture. Main thread.
#pragma once

#include "src/platform/owned.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UIView.h"

struct UIImageView : UIView {
    [[nodiscard]] static zelka::Owned<UIImageView> withFrame(CGRect frame) {
        return zelka::allocInit<UIImageView, "initWithFrame:">(frame);
    }
    // nil shows none.
    void setImage(UIImage image) const { zelka::send<void, "setImage:">(*this, image); }
};

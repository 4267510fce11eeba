// Views that take touches. Main thread.
#pragma once

#include "src/platform/uikit/UIView.h"

struct UIControl : UIView {
    bool isSelected() const { return zelka::send<bool, "isSelected">(*this); }
};

// Views of one text. Main thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIView.h"

struct UILabel : UIView {
    // +0, or nil.
    NSString text() const { return zelka::send<NSString, "text">(*this); }
};

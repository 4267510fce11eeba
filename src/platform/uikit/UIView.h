// Views. Results are unowned (+0); frames are in points, in the superview's coordinates; main thread.
#pragma once

#include "src/platform/foundation/NSArray.h"
#include "src/platform/quartz_core/CALayer.h"
#include "src/platform/uikit/UIColor.h"

struct UIResponder : NSObject {};

struct UIView : UIResponder {
    CGRect frame() const { return zelka::send<CGRect, "frame">(*this); }
    void setFrame(CGRect frame) const { zelka::send<void, "setFrame:">(*this, frame); }
    NSInteger tag() const { return zelka::send<NSInteger, "tag">(*this); }
    void setTag(NSInteger tag) const { zelka::send<void, "setTag:">(*this, tag); }
    // The receiver or its first descendant, depth first, with that tag; nil when there is none. Its class is not
    // checked.
    template <zelka::ObjectHandle T>
    T withTag(NSInteger tag) const {
        return zelka::send<T, "viewWithTag:">(*this, tag);
    }
    NSArray subviews() const { return zelka::send<NSArray, "subviews">(*this); }
    // nil for a view that is in none.
    UIView superview() const { return zelka::send<UIView, "superview">(*this); }
    // Above the others; this view retains it.
    void addSubview(UIView view) const { zelka::send<void, "addSubview:">(*this, view); }
    void removeFromSuperview() const { zelka::send<void, "removeFromSuperview">(*this); }
    void setBackgroundColor(UIColor color) const { zelka::send<void, "setBackgroundColor:">(*this, color); }
    void setClipsToBounds(bool clips) const { zelka::send<void, "setClipsToBounds:">(*this, clips); }
    void sizeToFit() const { zelka::send<void, "sizeToFit">(*this); }
    CALayer layer() const { return zelka::send<CALayer, "layer">(*this); }
};

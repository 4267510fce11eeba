#include "simulator/frameworks/uikit/control/UISwitch.h"

#include "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kWidth = 51, kHeight = 31;
constexpr CGFloat kRim = 1.5;

UIBezierPath* capsule(CGFloat inset) {
    return [UIBezierPath bezierPathWithRoundedRect:CGRectMake(inset, inset, kWidth - 2 * inset, kHeight - 2 * inset)
                                      cornerRadius:kHeight / 2 - inset];
}

void fillCircle(CGFloat centre, CGFloat middle, CGFloat radius, CGFloat white, CGFloat alpha) {
    [[UIColor colorWithWhite:white alpha:alpha] set];
    [[UIBezierPath bezierPathWithOvalInRect:CGRectMake(centre - radius, middle - radius, 2 * radius, 2 * radius)] fill];
}

// The knob with its soft shadow, which lies a little below it and stays within the capsule.
void drawKnob(CGFloat centre) {
    constexpr CGFloat kRadius = kHeight / 2 - kRim;
    [capsule(0) addClip];
    for (CGFloat blur = 2; blur >= 0; blur -= 0.5) fillCircle(centre, kHeight / 2 + 2, kRadius + blur, 0, 0.035);
    fillCircle(centre, kHeight / 2, kRadius + 0.5, 0, 0.08);
    fillCircle(centre, kHeight / 2, kRadius, 1, 1);
}

}  // namespace

@implementation UISwitch

@synthesize on = _on;
@synthesize onTintColor = _onTintColor;

- (instancetype)initWithFrame:(CGRect)frame {
    return [super initWithFrame:CGRectMake(frame.origin.x, frame.origin.y, kWidth, kHeight)];
}

- (void)dealloc {
    [_onTintColor release];
    [super dealloc];
}

- (void)setFrame:(CGRect)frame {
    [super setFrame:CGRectMake(frame.origin.x, frame.origin.y, kWidth, kHeight)];
}

- (CGSize)sizeThatFits:(CGSize)size {
    return CGSizeMake(kWidth, kHeight);
}

- (void)setOn:(BOOL)on {
    [self setOn:on animated:NO];
}

- (void)setOn:(BOOL)on animated:(BOOL)animated {
    [self _requireThread:_cmd];
    _on = on;
    [self setNeedsDisplay];
}

- (void)setOnTintColor:(UIColor*)color {
    [self _requireThread:_cmd];
    ASSIGN(_onTintColor, color);
}

- (void)setEnabled:(BOOL)enabled {
    [super setEnabled:enabled];
    [self setAlpha:enabled ? 1 : 0.5];
}

- (void)drawRect:(CGRect)rect {
    UIColor* green = [UIColor colorWithRed:0.298 green:0.851 blue:0.392 alpha:1];
    [(_on ? _onTintColor ?: green : [UIColor colorWithWhite:0.898 alpha:1]) set];
    [capsule(0) fill];
    if (!_on) {
        [[UIColor whiteColor] set];
        [capsule(kRim) fill];
    }
    const BOOL knobIsRight = _on != uikit::mirrorsViews();
    drawKnob(knobIsRight ? kWidth - kHeight / 2 : kHeight / 2);
}

@end

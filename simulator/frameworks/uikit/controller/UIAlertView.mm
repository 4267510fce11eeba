#include "simulator/frameworks/uikit/controller/UIAlertView.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <vector>

#include "simulator/frameworks/uikit/control/UIButton.h"
#include "simulator/frameworks/uikit/controller/UIWindow.h"
#include "simulator/frameworks/uikit/controller/window_list.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/view/UILabel.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kWidth = 270;
constexpr CGFloat kSide = 16, kTop = 20, kGap = 4, kBottom = 20;
constexpr CGFloat kButtonHeight = 44;
constexpr CGFloat kButtonMargin = 8;  // beside a title, for two buttons side by side

CGFloat hairline() { return 1 / [[UIScreen mainScreen] scale]; }

// Back to front.
std::vector<UIAlertView*>& shownAlerts() {
    static auto* all = new std::vector<UIAlertView*>;
    return *all;
}

UILabel* makeText(NSString* text, UIFont* font) {
    UILabel* label = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
    [label setText:text];
    [label setFont:font];
    [label setNumberOfLines:0];
    [label setLineBreakMode:NSLineBreakByWordWrapping];
    [label setTextAlignment:NSTextAlignmentCenter];
    return label;
}

}  // namespace

@implementation UIAlertView

@synthesize delegate = _delegate;
@synthesize title = _title;
@synthesize message = _message;
@synthesize cancelButtonIndex = _cancelButtonIndex;

- (instancetype)initWithFrame:(CGRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        _buttonTitles = [[NSMutableArray alloc] init];
        _cancelButtonIndex = -1;
    }
    return self;
}

- (instancetype)initWithTitle:(NSString*)title
                      message:(NSString*)message
                     delegate:(id)delegate
            cancelButtonTitle:(NSString*)cancelButtonTitle
            otherButtonTitles:(NSString*)otherButtonTitles, ... {
    self = [self initWithFrame:CGRectZero];
    if (!self) return nil;
    _title = [title copy];
    _message = [message copy];
    _delegate = delegate;
    if (cancelButtonTitle) _cancelButtonIndex = [self addButtonWithTitle:cancelButtonTitle];
    va_list more;
    va_start(more, otherButtonTitles);
    for (NSString* other = otherButtonTitles; other; other = va_arg(more, NSString*)) [self addButtonWithTitle:other];
    va_end(more);
    return self;
}

- (void)dealloc {
    [_title release];
    [_message release];
    [_buttonTitles release];
    [_box release];
    [super dealloc];
}

- (NSInteger)numberOfButtons {
    return (NSInteger)[_buttonTitles count];
}

- (NSInteger)addButtonWithTitle:(NSString*)title {
    [self _requireThread:_cmd];
    [_buttonTitles addObject:title];
    return [self numberOfButtons] - 1;
}

- (NSString*)buttonTitleAtIndex:(NSInteger)index {
    return [_buttonTitles objectAtIndex:(NSUInteger)index];
}

- (BOOL)isVisible {
    return [self superview] != nil;
}

- (void)show {
    [self _requireThread:_cmd];
    if ([self isVisible]) return;
    UIWindow* window = uikit::keyWindow();
    if (!window) [NSException raise:NSInternalInconsistencyException format:@"UIAlertView: there is no key window"];
    shownAlerts().push_back(self);
    [self setBackgroundColor:[UIColor colorWithWhite:0 alpha:0.4]];
    [self setFrame:[window bounds]];
    [self setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
    [self _makeBox];
    [window addSubview:self];
}

- (void)dismissWithClickedButtonIndex:(NSInteger)index animated:(BOOL)animated {
    [self _requireThread:_cmd];
    if (![self isVisible]) return;
    [[self retain] autorelease];
    std::erase(shownAlerts(), self);
    [self removeFromSuperview];
    if ([_delegate respondsToSelector:@selector(alertView:didDismissWithButtonIndex:)]) {
        [_delegate alertView:self didDismissWithButtonIndex:index];
    }
}

- (void)_pressButtonAtIndex:(NSInteger)index {
    [[self retain] autorelease];
    if ([_delegate respondsToSelector:@selector(alertView:clickedButtonAtIndex:)]) {
        [_delegate alertView:self clickedButtonAtIndex:index];
    }
    [self dismissWithClickedButtonIndex:index animated:YES];
}

- (void)_pressed:(UIButton*)button {
    [self _pressButtonAtIndex:[button tag]];
}

+ (UIAlertView*)_frontmost {
    return shownAlerts().empty() ? nil : shownAlerts().back();
}

- (void)_makeBox {
    _box = [[UIView alloc] initWithFrame:CGRectZero];
    [_box setBackgroundColor:[UIColor colorWithWhite:0.97 alpha:1]];
    [[_box layer] setCornerRadius:uikit::systemMajorVersion() >= 9 ? 13 : 7];
    [_box setClipsToBounds:YES];
    [self addSubview:_box];
    CGFloat bottom = [self _addTexts];
    bottom = [self _buttonsFitSideBySide] ? [self _addButtonPairAt:bottom] : [self _addButtonColumnAt:bottom];
    [_box setBounds:CGRectMake(0, 0, kWidth, bottom)];
}

// Returns where the texts end.
- (CGFloat)_addTexts {
    CGFloat bottom = kTop;
    UIFont* small = [UIFont systemFontOfSize:uikit::systemMajorVersion() >= 9 ? 13 : 14];
    UILabel* texts[] = {makeText(_title, [UIFont boldSystemFontOfSize:17]), makeText(_message, small)};
    for (UILabel* label : texts) {
        if ([[label text] length] == 0) continue;
        const CGFloat height = std::ceil([label sizeThatFits:CGSizeMake(kWidth - 2 * kSide, 0)].height);
        [label setFrame:CGRectMake(kSide, bottom, kWidth - 2 * kSide, height)];
        [_box addSubview:label];
        bottom += height + kGap;
    }
    return bottom - kGap + kBottom;
}

- (UIFont*)_fontOfButton:(NSInteger)index {
    return index == _cancelButtonIndex ? [UIFont boldSystemFontOfSize:17] : [UIFont systemFontOfSize:17];
}

- (BOOL)_buttonsFitSideBySide {
    if ([self numberOfButtons] != 2) return NO;
    for (NSInteger index = 0; index < 2; ++index) {
        const CGFloat width = [[self buttonTitleAtIndex:index] sizeWithFont:[self _fontOfButton:index]].width;
        if (width > kWidth / 2 - 2 * kButtonMargin) return NO;
    }
    return YES;
}

- (void)_addButton:(NSInteger)index in:(CGRect)frame {
    UIButton* button = [UIButton buttonWithType:UIButtonTypeSystem];
    [button setTag:index];
    [button setTitle:[self buttonTitleAtIndex:index] forState:UIControlStateNormal];
    [[button titleLabel] setFont:[self _fontOfButton:index]];
    [button addTarget:self action:@selector(_pressed:) forControlEvents:UIControlEventTouchUpInside];
    [button setFrame:frame];
    [_box addSubview:button];
}

- (void)_addLine:(CGRect)frame {
    UIView* line = [[[UIView alloc] initWithFrame:frame] autorelease];
    [line setBackgroundColor:[UIColor colorWithWhite:0.78 alpha:1]];
    [_box addSubview:line];
}

- (CGFloat)_addButtonPairAt:(CGFloat)top {
    const CGFloat half = kWidth / 2;
    for (NSInteger index = 0; index < 2; ++index) {
        const BOOL isLeft = (index == 0) != uikit::mirrorsViews();
        [self _addButton:index in:CGRectMake(isLeft ? 0 : half, top, half, kButtonHeight)];
    }
    [self _addLine:CGRectMake(0, top, kWidth, hairline())];
    [self _addLine:CGRectMake(half, top, hairline(), kButtonHeight)];
    return top + kButtonHeight;
}

// One below the other, the cancel button last.
- (CGFloat)_addButtonColumnAt:(CGFloat)top {
    std::vector<NSInteger> order;
    for (NSInteger index = 0; index < [self numberOfButtons]; ++index) order.push_back(index);
    std::stable_partition(order.begin(), order.end(), [&](NSInteger index) { return index != _cancelButtonIndex; });
    for (const NSInteger index : order) {
        [self _addButton:index in:CGRectMake(0, top, kWidth, kButtonHeight)];
        [self _addLine:CGRectMake(0, top, kWidth, hairline())];
        top += kButtonHeight;
    }
    return top;
}

- (void)layoutSubviews {
    [super layoutSubviews];
    const CGSize room = [self bounds].size;
    const CGSize box = [_box bounds].size;
    [_box setFrame:CGRectMake(std::floor((room.width - box.width) / 2), std::floor((room.height - box.height) / 2),
                              box.width, box.height)];
}

@end

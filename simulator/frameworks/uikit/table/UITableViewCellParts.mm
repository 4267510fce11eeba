#include "simulator/frameworks/uikit/table/UITableViewCellParts.h"

#include <cmath>

#include "simulator/frameworks/uikit/control/UIButton.h"
#include "simulator/frameworks/uikit/graphics/UIBezierPath.h"
#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/device_traits.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"

namespace {

constexpr CGFloat kEditCircle = 22;
constexpr CGFloat kGapBeforeChevron = 10;

CGSize markSize(UITableViewCellAccessoryType type) {
    return type == UITableViewCellAccessoryCheckmark ? CGSizeMake(14, 11) : CGSizeMake(8, 13);
}

UIView* makeButtonWithChevron() {
    UIButton* button = [UIButton buttonWithType:UIButtonTypeDetailDisclosure];
    UIView* chevron =
        [[[UITableViewCellAccessoryMark alloc] initWithType:UITableViewCellAccessoryDisclosureIndicator] autorelease];
    const CGSize circle = [button frame].size;
    const CGSize mark = [chevron frame].size;
    const CGFloat width = circle.width + kGapBeforeChevron + mark.width;
    UIView* both = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, width, circle.height)] autorelease];
    const BOOL mirrored = uikit::mirrorsViews();
    [button setFrame:CGRectMake(mirrored ? width - circle.width : 0, 0, circle.width, circle.height)];
    [chevron setFrame:CGRectMake(mirrored ? 0 : width - mark.width, (circle.height - mark.height) / 2, mark.width,
                                 mark.height)];
    [both addSubview:button];
    [both addSubview:chevron];
    return both;
}

}  // namespace

@implementation UITableViewCellContentView
@end

@implementation UITableViewCellScrollView
@end

@implementation UITableViewCellEditControl

@synthesize style = _style;

- (void)setStyle:(UITableViewCellEditingStyle)style {
    [self _requireThread:_cmd];
    _style = style;
    [self setHidden:style == UITableViewCellEditingStyleNone];
}

- (void)drawRect:(CGRect)rect {
    const CGFloat left = (rect.size.width - kEditCircle) / 2;
    const CGFloat top = std::floor((rect.size.height - kEditCircle) / 2);
    const BOOL deletes = _style == UITableViewCellEditingStyleDelete;
    [(deletes ? [UIColor colorWithRed:1 green:0.231 blue:0.188 alpha:1]
              : [UIColor colorWithRed:0.298 green:0.851 blue:0.392 alpha:1]) set];
    [[UIBezierPath bezierPathWithOvalInRect:CGRectMake(left, top, kEditCircle, kEditCircle)] fill];
    [[UIColor whiteColor] set];
    UIRectFill(CGRectMake(left + 5.5, top + 10, 11, 2));
    if (!deletes) UIRectFill(CGRectMake(left + 10, top + 5.5, 2, 11));
}

@end

@implementation UITableViewCellAccessoryMark

- (instancetype)initWithType:(UITableViewCellAccessoryType)type {
    const CGSize size = markSize(type);
    self = [super initWithFrame:CGRectMake(0, 0, size.width, size.height)];
    if (self) _type = type;
    return self;
}

- (void)drawRect:(CGRect)rect {
    UIBezierPath* path = [UIBezierPath bezierPath];
    if (_type == UITableViewCellAccessoryCheckmark) {
        [path moveToPoint:CGPointMake(1, 6)];
        [path addLineToPoint:CGPointMake(5, 10)];
        [path addLineToPoint:CGPointMake(13, 1)];
        [[self tintColor] set];
    } else {
        const CGFloat blunt = uikit::mirrorsViews() ? 7 : 1;
        [path moveToPoint:CGPointMake(blunt, 1)];
        [path addLineToPoint:CGPointMake(8 - blunt, 6.5)];
        [path addLineToPoint:CGPointMake(blunt, 12)];
        [[UIColor colorWithRed:0.78 green:0.78 blue:0.8 alpha:1] set];
    }
    [path setLineWidth:_type == UITableViewCellAccessoryCheckmark ? 1.5 : 2];
    [path stroke];
}

@end

UIView* UITableViewMakeAccessory(UITableViewCellAccessoryType type) {
    switch (type) {
        case UITableViewCellAccessoryNone:
            return nil;
        case UITableViewCellAccessoryDisclosureIndicator:
        case UITableViewCellAccessoryCheckmark:
            return [[[UITableViewCellAccessoryMark alloc] initWithType:type] autorelease];
        case UITableViewCellAccessoryDetailButton:
            return [UIButton buttonWithType:UIButtonTypeDetailDisclosure];
        case UITableViewCellAccessoryDetailDisclosureButton:
            return makeButtonWithChevron();
    }
    [NSException raise:NSInvalidArgumentException format:@"UITableViewCell: unknown accessory type %ld", (long)type];
    return nil;
}

#import "simulator/hosts/callbar/CallBarDrawing.h"

UIColor* CallBarSecondaryTextColor(void) { return [UIColor colorWithWhite:0.55 alpha:1]; }

UIColor* CallBarMissedColor(void) { return [UIColor colorWithRed:1 green:0.231 blue:0.188 alpha:1]; }

UIColor* CallBarTintColor(void) { return [UIColor colorWithRed:0 green:0.478 blue:1 alpha:1]; }

UIImage* CallBarOutgoingIcon(void) {
    static UIImage* icon = nil;
    if (icon != nil) return icon;
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(12, 10), NO, 0);
    [CallBarSecondaryTextColor() set];
    UIBezierPath* handset = [UIBezierPath bezierPath];
    [handset moveToPoint:CGPointMake(1.2, 2.2)];
    [handset addCurveToPoint:CGPointMake(7.8, 8.8) controlPoint1:CGPointMake(1.2, 6) controlPoint2:CGPointMake(4, 8.8)];
    [handset setLineWidth:2];
    [handset stroke];
    UIBezierPath* arrow = [UIBezierPath bezierPath];
    [arrow moveToPoint:CGPointMake(5.6, 4.8)];
    [arrow addLineToPoint:CGPointMake(10.6, 1)];
    [arrow moveToPoint:CGPointMake(7.2, 0.8)];
    [arrow addLineToPoint:CGPointMake(10.8, 0.8)];
    [arrow addLineToPoint:CGPointMake(10.8, 4.2)];
    [arrow setLineWidth:1.1];
    [arrow stroke];
    icon = [UIGraphicsGetImageFromCurrentImageContext() retain];
    UIGraphicsEndImageContext();
    return icon;
}

@implementation CallBarDeleteControl

- (void)drawRect:(CGRect)rect {
    const CGSize size = [self bounds].size;
    [CallBarMissedColor() setFill];
    [[UIBezierPath bezierPathWithOvalInRect:[self bounds]] fill];
    [[UIColor whiteColor] setFill];
    UIRectFill(CGRectMake(size.width * 0.25, size.height / 2 - 1, size.width / 2, 2));
}

@end

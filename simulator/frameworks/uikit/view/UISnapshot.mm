#include "simulator/frameworks/uikit/view/UISnapshot.h"

#include "simulator/frameworks/uikit/graphics/UIColor.h"
#include "simulator/frameworks/uikit/graphics/UIGraphics.h"
#include "simulator/frameworks/uikit/graphics/UIImage.h"
#include "simulator/frameworks/uikit/graphics/UIScreen.h"
#include "simulator/frameworks/uikit/graphics/pixels.h"

UIImage* UISnapshotOfView(UIView* view) {
    [view layoutIfNeeded];
    const CGRect bounds = [view bounds];
    UIGraphicsBeginImageContextWithOptions(bounds.size, YES, [[UIScreen mainScreen] scale]);
    CGContextRef context = UIGraphicsGetCurrentContext();
    [[UIColor whiteColor] set];
    CGContextFillRect(context, CGRectMake(0, 0, bounds.size.width, bounds.size.height));
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    [[view layer] renderInContext:context];
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

BOOL UIWriteSnapshotOfView(UIView* view, NSString* path, NSError** error) {
    const phone::Status written = phone::writePng([UISnapshotOfView(view) CGImage], [path UTF8String]);
    if (written) return YES;
    if (error) {
        NSString* text = [NSString stringWithUTF8String:written.error().message.c_str()];
        *error = [NSError errorWithDomain:NSCocoaErrorDomain
                                     code:0
                                 userInfo:[NSDictionary dictionaryWithObject:text forKey:NSLocalizedDescriptionKey]];
    }
    return NO;
}

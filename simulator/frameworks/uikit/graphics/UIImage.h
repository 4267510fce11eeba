// Immutable pictures; safe on any thread, also to decode and draw the same one on several at once.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/core_graphics.h"

typedef NS_ENUM(NSInteger, UIImageOrientation) {
    UIImageOrientationUp,
    UIImageOrientationDown,
    UIImageOrientationLeft,
    UIImageOrientationRight,
    UIImageOrientationUpMirrored,
    UIImageOrientationDownMirrored,
    UIImageOrientationLeftMirrored,
    UIImageOrientationRightMirrored,
};

@interface UIImage : NSObject {
    CGImageRef _image;
    CGFloat _scale;
    UIImageOrientation _orientation;
}
/// nil when the file is missing or is not a whole picture. The scale comes from an "@2x" or "@3x" before the
/// extension; for a name without one, the variant for the main screen is preferred when it exists.
+ (UIImage*)imageWithContentsOfFile:(NSString*)path;
/// nil for bytes that are not a whole picture, or declare a size beyond what the phone can hold. Scale 1; the
/// orientation recorded by a camera is honoured.
+ (UIImage*)imageWithData:(NSData*)data;
+ (UIImage*)imageWithData:(NSData*)data scale:(CGFloat)scale;
/// A NULL image gives nil.
+ (UIImage*)imageWithCGImage:(CGImageRef)image;
+ (UIImage*)imageWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;
- (instancetype)initWithContentsOfFile:(NSString*)path;
- (instancetype)initWithData:(NSData*)data;
- (instancetype)initWithData:(NSData*)data scale:(CGFloat)scale;
- (instancetype)initWithCGImage:(CGImageRef)image;
- (instancetype)initWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;
/// Points, as seen upright.
- (CGSize)size;
- (CGFloat)scale;
- (UIImageOrientation)imageOrientation;
/// The stored pixels, not turned upright; +0.
- (CGImageRef)CGImage;
// Into the current context, in its coordinates (y down).
- (void)drawInRect:(CGRect)rect;
- (void)drawAtPoint:(CGPoint)point;
@end

/// Autoreleased PNG bytes of the picture's stored pixels; nil when there are none.
CG_EXTERN NSData* UIImagePNGRepresentation(UIImage* image);

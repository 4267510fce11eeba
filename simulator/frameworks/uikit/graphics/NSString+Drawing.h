// Strings drawn with UIKit's first text interface: in the current context, its coordinates (y down), its fill colour.
// Every result is the size in points that the text took up. Safe on any thread.
#pragma once

#import "simulator/frameworks/uikit/graphics/UIFont.h"

typedef NS_ENUM(NSInteger, NSLineBreakMode) {
    NSLineBreakByWordWrapping,
    NSLineBreakByCharWrapping,
    NSLineBreakByClipping,
    NSLineBreakByTruncatingHead,
    NSLineBreakByTruncatingTail,
    NSLineBreakByTruncatingMiddle,
};
typedef NS_ENUM(NSInteger, NSTextAlignment) {
    NSTextAlignmentLeft,
    NSTextAlignmentCenter,
    NSTextAlignmentRight,
    NSTextAlignmentJustified,
    NSTextAlignmentNatural,
};

@interface NSString (UIStringDrawing)
- (CGSize)sizeWithFont:(UIFont*)font;
/// One line, cut to `width` points by the mode.
- (CGSize)sizeWithFont:(UIFont*)font forWidth:(CGFloat)width lineBreakMode:(NSLineBreakMode)mode;
- (CGSize)sizeWithFont:(UIFont*)font constrainedToSize:(CGSize)size;
- (CGSize)sizeWithFont:(UIFont*)font constrainedToSize:(CGSize)size lineBreakMode:(NSLineBreakMode)mode;
/// One line with its top-left corner at `point`.
- (CGSize)drawAtPoint:(CGPoint)point withFont:(UIFont*)font;
- (CGSize)drawAtPoint:(CGPoint)point forWidth:(CGFloat)width withFont:(UIFont*)font lineBreakMode:(NSLineBreakMode)mode;
/// From the box's top, as many lines as are whole inside it, but at least one.
- (CGSize)drawInRect:(CGRect)rect withFont:(UIFont*)font;
- (CGSize)drawInRect:(CGRect)rect withFont:(UIFont*)font lineBreakMode:(NSLineBreakMode)mode;
- (CGSize)drawInRect:(CGRect)rect
            withFont:(UIFont*)font
       lineBreakMode:(NSLineBreakMode)mode
           alignment:(NSTextAlignment)alignment;
@end

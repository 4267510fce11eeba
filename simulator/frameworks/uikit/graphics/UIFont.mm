#import "simulator/frameworks/uikit/graphics/UIFont.h"

#include "simulator/frameworks/uikit/graphics/text_engine.h"

@implementation UIFont

- (instancetype)initWithSize:(CGFloat)size bold:(BOOL)bold {
    self = [super init];
    if (self != nil) {
        constexpr CGFloat fallbackSize = 12;
        const uikit::FontMetrics metrics = uikit::systemFontMetrics(bold != NO);
        _pointSize = size > 0 ? size : fallbackSize;
        _bold = bold;
        _ascender = metrics.ascender * _pointSize;
        _descender = -metrics.descender * _pointSize;
    }
    return self;
}

+ (UIFont*)systemFontOfSize:(CGFloat)size {
    return [[[self alloc] initWithSize:size bold:NO] autorelease];
}

+ (UIFont*)boldSystemFontOfSize:(CGFloat)size {
    return [[[self alloc] initWithSize:size bold:YES] autorelease];
}

+ (CGFloat)systemFontSize {
    return 14;
}

+ (CGFloat)labelFontSize {
    return 17;
}

- (UIFont*)fontWithSize:(CGFloat)size {
    return [[[UIFont alloc] initWithSize:size bold:_bold] autorelease];
}

- (CGFloat)pointSize {
    return _pointSize;
}

- (NSString*)fontName {
    return _bold ? @"Inter-Bold" : @"Inter-Regular";
}

- (NSString*)familyName {
    return @"Inter";
}

- (CGFloat)ascender {
    return _ascender;
}

- (CGFloat)descender {
    return _descender;
}

- (CGFloat)lineHeight {
    return _ascender - _descender;
}

- (id)copyWithZone:(NSZone*)zone {
    (void)zone;
    return [self retain];
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:[UIFont class]] && _pointSize == [other pointSize] &&
           [[self fontName] isEqual:[other fontName]];
}

- (NSUInteger)hash {
    return NSUInteger(_pointSize * 64) * 2 + (_bold ? 1 : 0);
}

@end

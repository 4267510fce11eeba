#import "simulator/frameworks/uikit/graphics/UIColor.h"

#import "simulator/frameworks/core_graphics/objects.h"
#import "simulator/frameworks/uikit/graphics/UIGraphics.h"

using core_graphics::object;

static CGColorRef createColor(CGColorSpaceModel model, std::initializer_list<CGFloat> components) {
    CGFloat clamped[4];
    std::transform(components.begin(), components.end(), clamped,
                   [](CGFloat component) { return std::clamp<CGFloat>(component, 0, 1); });
    const CGColorSpaceRef space =
        model == kCGColorSpaceModelRGB ? CGColorSpaceCreateDeviceRGB() : CGColorSpaceCreateDeviceGray();
    const CGColorRef color = CGColorCreate(space, clamped);
    CGColorSpaceRelease(space);
    return color;
}

@implementation UIColor

+ (UIColor*)colorWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha {
    return [[[self alloc] initWithRed:red green:green blue:blue alpha:alpha] autorelease];
}

+ (UIColor*)colorWithWhite:(CGFloat)white alpha:(CGFloat)alpha {
    return [[[self alloc] initWithWhite:white alpha:alpha] autorelease];
}

+ (UIColor*)colorWithCGColor:(CGColorRef)color {
    return [[[self alloc] initWithCGColor:color] autorelease];
}

// Takes over the +1.
- (instancetype)initAdoptingColor:(CGColorRef)color {
    self = [super init];
    if (self == nil || color == nullptr) {
        CGColorRelease(color);
        [self release];
        return nil;
    }
    _color = color;
    return self;
}

- (instancetype)initWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha {
    return [self initAdoptingColor:createColor(kCGColorSpaceModelRGB, {red, green, blue, alpha})];
}

- (instancetype)initWithWhite:(CGFloat)white alpha:(CGFloat)alpha {
    return [self initAdoptingColor:createColor(kCGColorSpaceModelMonochrome, {white, alpha})];
}

- (instancetype)initWithCGColor:(CGColorRef)color {
    return [self initAdoptingColor:CGColorRetain(color)];
}

- (void)dealloc {
    CGColorRelease(_color);
    [super dealloc];
}

// The named colours are made once and live as long as the process.
// NOLINTBEGIN(bugprone-macro-parentheses): a method's name takes none
#define NAMED_GRAY(name, w, a)                                                   \
    +(UIColor*)name {                                                            \
        static UIColor* const color = [[UIColor alloc] initWithWhite:w alpha:a]; \
        return color;                                                            \
    }
#define NAMED_RGB(name, r, g, b)                                                              \
    +(UIColor*)name {                                                                         \
        static UIColor* const color = [[UIColor alloc] initWithRed:r green:g blue:b alpha:1]; \
        return color;                                                                         \
    }
// NOLINTEND(bugprone-macro-parentheses)
// clang-format off
NAMED_GRAY(blackColor, 0, 1)
NAMED_GRAY(darkGrayColor, 1.0 / 3.0, 1)
NAMED_GRAY(lightGrayColor, 2.0 / 3.0, 1)
NAMED_GRAY(whiteColor, 1, 1)
NAMED_GRAY(grayColor, 0.5, 1)
NAMED_GRAY(clearColor, 0, 0)
NAMED_RGB(redColor, 1, 0, 0)
NAMED_RGB(greenColor, 0, 1, 0)
NAMED_RGB(blueColor, 0, 0, 1)
NAMED_RGB(cyanColor, 0, 1, 1)
NAMED_RGB(yellowColor, 1, 1, 0)
NAMED_RGB(magentaColor, 1, 0, 1)
NAMED_RGB(orangeColor, 1, 0.5, 0)
NAMED_RGB(purpleColor, 0.5, 0, 0.5)
NAMED_RGB(brownColor, 0.6, 0.4, 0.2)
// clang-format on
#undef NAMED_GRAY
#undef NAMED_RGB

- (UIColor*)colorWithAlphaComponent:(CGFloat)alpha {
    const CGColorRef copy = CGColorCreateCopyWithAlpha(_color, std::clamp<CGFloat>(alpha, 0, 1));
    return [[[UIColor alloc] initAdoptingColor:copy] autorelease];
}

- (BOOL)getRed:(CGFloat*)red green:(CGFloat*)green blue:(CGFloat*)blue alpha:(CGFloat*)alpha {
    CGFloat* const wanted[] = {red, green, blue, alpha};
    for (size_t i = 0; i < 4; ++i) {
        if (wanted[i] != nullptr) {
            *wanted[i] = object(_color)->rgba[i];
        }
    }
    return YES;
}

- (BOOL)getWhite:(CGFloat*)white alpha:(CGFloat*)alpha {
    if (object(_color)->model != kCGColorSpaceModelMonochrome) {
        return NO;
    }
    return [self getRed:white green:nullptr blue:nullptr alpha:alpha];
}

- (CGColorRef)CGColor {
    return _color;
}

- (void)set {
    [self setFill];
    [self setStroke];
}

- (void)setFill {
    CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), _color);
}

- (void)setStroke {
    CGContextSetStrokeColorWithColor(UIGraphicsGetCurrentContext(), _color);
}

- (id)copyWithZone:(NSZone*)zone {
    (void)zone;
    return [self retain];
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:[UIColor class]] && CGColorEqualToColor(_color, [other CGColor]);
}

- (NSUInteger)hash {
    const double* rgba = object(_color)->rgba;
    return NSUInteger(rgba[0] * 255) << 24 ^ NSUInteger(rgba[1] * 255) << 16 ^ NSUInteger(rgba[2] * 255) << 8 ^
           NSUInteger(rgba[3] * 255);
}

- (NSString*)description {
    const CGFloat* c = CGColorGetComponents(_color);
    return object(_color)->model == kCGColorSpaceModelRGB
               ? [NSString stringWithFormat:@"UIDeviceRGBColorSpace %g %g %g %g", c[0], c[1], c[2], c[3]]
               : [NSString stringWithFormat:@"UIDeviceWhiteColorSpace %g %g", c[0], c[1]];
}

@end

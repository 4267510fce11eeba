#import "simulator/frameworks/uikit/graphics/UIImage.h"

#include <cstdio>
#include <string>
#include <vector>

#import "simulator/frameworks/core_graphics/objects.h"
#include "simulator/frameworks/uikit/graphics/context_stack.h"
#include "simulator/frameworks/uikit/graphics/picture_decoder.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/process/device.h"

namespace {

bool isSideways(UIImageOrientation orientation) {
    return orientation == UIImageOrientationLeft || orientation == UIImageOrientationRight ||
           orientation == UIImageOrientationLeftMirrored || orientation == UIImageOrientationRightMirrored;
}

// By the values that cameras record, which begin at 1.
UIImageOrientation fromExif(int orientation) {
    static constexpr UIImageOrientation names[] = {UIImageOrientationUp,
                                                   UIImageOrientationUpMirrored,
                                                   UIImageOrientationDown,
                                                   UIImageOrientationDownMirrored,
                                                   UIImageOrientationLeftMirrored,
                                                   UIImageOrientationRight,
                                                   UIImageOrientationRightMirrored,
                                                   UIImageOrientationLeft};
    return names[orientation - 1];
}

// From the stored picture's unit square to the upright one's, y down in both.
CGAffineTransform upright(UIImageOrientation orientation) {
    switch (orientation) {
        case UIImageOrientationUp:
            return {1, 0, 0, 1, 0, 0};
        case UIImageOrientationUpMirrored:
            return {-1, 0, 0, 1, 1, 0};
        case UIImageOrientationDown:
            return {-1, 0, 0, -1, 1, 1};
        case UIImageOrientationDownMirrored:
            return {1, 0, 0, -1, 0, 1};
        case UIImageOrientationLeftMirrored:
            return {0, 1, 1, 0, 0, 0};
        case UIImageOrientationRight:
            return {0, 1, -1, 0, 1, 0};
        case UIImageOrientationRightMirrored:
            return {0, -1, -1, 0, 1, 1};
        case UIImageOrientationLeft:
            return {0, -1, 1, 0, 0, 1};
    }
    return CGAffineTransformIdentity;
}

bool readWhole(NSString* path, std::vector<char>& bytes) {
    bytes.clear();
    const std::string host = phone::hostPath([path UTF8String]);
    std::FILE* file = std::fopen(host.c_str(), "rbe");
    if (file == nullptr) {
        return false;
    }
    char block[65536];
    size_t got;
    while ((got = std::fread(block, 1, sizeof block, file)) > 0) {
        bytes.insert(bytes.end(), block, block + got);
    }
    const bool whole = std::ferror(file) == 0;
    std::fclose(file);
    return whole;
}

NSString* suffix(int scale) { return [NSString stringWithFormat:@"@%dx", scale]; }

}  // namespace

@implementation UIImage

+ (UIImage*)imageWithContentsOfFile:(NSString*)path {
    return [[[self alloc] initWithContentsOfFile:path] autorelease];
}

+ (UIImage*)imageWithData:(NSData*)data {
    return [[[self alloc] initWithData:data] autorelease];
}

+ (UIImage*)imageWithData:(NSData*)data scale:(CGFloat)scale {
    return [[[self alloc] initWithData:data scale:scale] autorelease];
}

+ (UIImage*)imageWithCGImage:(CGImageRef)image {
    return [[[self alloc] initWithCGImage:image] autorelease];
}

+ (UIImage*)imageWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
    return [[[self alloc] initWithCGImage:image scale:scale orientation:orientation] autorelease];
}

- (instancetype)initWithContentsOfFile:(NSString*)path {
    if (path == nil) {
        [self release];
        return nil;
    }
    NSString* base = [path stringByDeletingPathExtension];
    NSString* extension = [path pathExtension];
    std::vector<char> bytes;
    for (int scale = 3; scale >= 2; --scale) {
        if ([base hasSuffix:suffix(scale)]) {
            readWhole(path, bytes);
            return [self initWithBytes:bytes.data() length:bytes.size() scale:scale];
        }
    }
    for (int scale = int(std::ceil(phone::device().scale)); scale >= 2; --scale) {
        NSString* variant = [base stringByAppendingString:suffix(scale)];
        variant = [extension length] == 0 ? variant : [variant stringByAppendingPathExtension:extension];
        if (readWhole(variant, bytes)) {
            return [self initWithBytes:bytes.data() length:bytes.size() scale:scale];
        }
    }
    readWhole(path, bytes);
    return [self initWithBytes:bytes.data() length:bytes.size() scale:1];
}

- (instancetype)initWithData:(NSData*)data {
    return [self initWithData:data scale:1];
}

- (instancetype)initWithData:(NSData*)data scale:(CGFloat)scale {
    return [self initWithBytes:[data bytes] length:[data length] scale:scale];
}

- (instancetype)initWithBytes:(const void*)bytes length:(size_t)length scale:(CGFloat)scale {
    const uikit::DecodedPicture decoded = uikit::decodePicture(bytes, length);
    const CGImageRef image = core_graphics::createImage(decoded.surface);
    self = [self initWithCGImage:image scale:scale orientation:fromExif(decoded.exifOrientation)];
    CGImageRelease(image);
    return self;
}

- (instancetype)initWithCGImage:(CGImageRef)image {
    return [self initWithCGImage:image scale:1 orientation:UIImageOrientationUp];
}

- (instancetype)initWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
    self = image == nullptr ? (void([self release]), nil) : [super init];
    if (self != nil) {
        _image = CGImageRetain(image);
        _scale = scale > 0 ? scale : 1;
        _orientation = orientation;
    }
    return self;
}

- (void)dealloc {
    CGImageRelease(_image);
    [super dealloc];
}

- (CGSize)size {
    const CGSize stored{CGFloat(CGImageGetWidth(_image)) / _scale, CGFloat(CGImageGetHeight(_image)) / _scale};
    return isSideways(_orientation) ? CGSizeMake(stored.height, stored.width) : stored;
}

- (CGFloat)scale {
    return _scale;
}

- (UIImageOrientation)imageOrientation {
    return _orientation;
}

- (CGImageRef)CGImage {
    return _image;
}

- (void)drawInRect:(CGRect)rect {
    const core_graphics::Drawing drawing(uikit::currentContext(), "CGContextDrawImage");
    if (!drawing || CGRectIsEmpty(rect)) {
        return;
    }
    rect = CGRectStandardize(rect);
    CGAffineTransform toRect = CGAffineTransformScale(upright(_orientation), 1.0 / double(CGImageGetWidth(_image)),
                                                      1.0 / double(CGImageGetHeight(_image)));
    toRect = CGAffineTransformConcat(toRect, {rect.size.width, 0, 0, rect.size.height, rect.origin.x, rect.origin.y});
    core_graphics::drawImage(drawing, _image, toRect);
}

- (void)drawAtPoint:(CGPoint)point {
    [self drawInRect:{point, [self size]}];
}

- (NSString*)description {
    const CGSize size = [self size];
    return [NSString stringWithFormat:@"<UIImage: %p> {%g, %g} @%gx", self, size.width, size.height, _scale];
}

@end

static cairo_status_t appendBytes(void* data, const unsigned char* bytes, unsigned length) {
    [static_cast<NSMutableData*>(data) appendBytes:bytes length:length];
    return CAIRO_STATUS_SUCCESS;
}

NSData* UIImagePNGRepresentation(UIImage* image) {
    if (image == nil) {
        return nil;
    }
    NSMutableData* data = [NSMutableData data];
    const core_graphics::PixelReader pixels(core_graphics::object([image CGImage])->store);
    const bool written = cairo_surface_write_to_png_stream(pixels.surface(), appendBytes, data) == CAIRO_STATUS_SUCCESS;
    return written ? data : nil;
}

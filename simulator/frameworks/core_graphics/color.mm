#include "simulator/frameworks/core_graphics/color.h"

#import "simulator/frameworks/core_graphics/objects.h"

using core_graphics::object;

@implementation CGColorSpaceObject
@end

@implementation CGColorObject
@end

static CGColorSpaceRef sharedSpace(CGColorSpaceModel model) {
    const auto make = [](CGColorSpaceModel wanted) {
        CGColorSpaceObject* space = [[CGColorSpaceObject alloc] init];
        space->model = wanted;
        return reinterpret_cast<CGColorSpaceRef>(space);
    };
    static const CGColorSpaceRef rgb = make(kCGColorSpaceModelRGB);
    static const CGColorSpaceRef gray = make(kCGColorSpaceModelMonochrome);
    return model == kCGColorSpaceModelRGB ? rgb : gray;
}

CGColorSpaceRef CGColorSpaceCreateDeviceRGB() { return CGColorSpaceRetain(sharedSpace(kCGColorSpaceModelRGB)); }

CGColorSpaceRef CGColorSpaceCreateDeviceGray() { return CGColorSpaceRetain(sharedSpace(kCGColorSpaceModelMonochrome)); }

CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space) {
    [reinterpret_cast<id>(space) retain];
    return space;
}

void CGColorSpaceRelease(CGColorSpaceRef space) { [reinterpret_cast<id>(space) release]; }

CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space) {
    return space == nullptr ? kCGColorSpaceModelUnknown : reinterpret_cast<CGColorSpaceObject*>(space)->model;
}

size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space) {
    switch (CGColorSpaceGetModel(space)) {
        case kCGColorSpaceModelRGB:
            return 3;
        case kCGColorSpaceModelMonochrome:
            return 1;
        default:
            return 0;
    }
}

CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat components[]) {
    if (space == nullptr || components == nullptr) {
        return nullptr;
    }
    CGColorObject* color = [[CGColorObject alloc] init];
    color->model = CGColorSpaceGetModel(space);
    std::copy_n(components, CGColorSpaceGetNumberOfComponents(space) + 1, color->components);
    if (color->model == kCGColorSpaceModelRGB) {
        std::copy_n(components, 4, color->rgba);
    } else {
        std::fill_n(color->rgba, 3, components[0]);
        color->rgba[3] = components[1];
    }
    return reinterpret_cast<CGColorRef>(color);
}

CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha) {
    if (color == nullptr) {
        return nullptr;
    }
    CGFloat components[4];
    const size_t count = CGColorGetNumberOfComponents(color);
    std::copy_n(object(color)->components, count, components);
    components[count - 1] = alpha;
    return CGColorCreate(CGColorGetColorSpace(color), components);
}

CGColorRef CGColorRetain(CGColorRef color) {
    [reinterpret_cast<id>(color) retain];
    return color;
}

void CGColorRelease(CGColorRef color) { [reinterpret_cast<id>(color) release]; }

size_t CGColorGetNumberOfComponents(CGColorRef color) {
    return color == nullptr ? 0 : CGColorSpaceGetNumberOfComponents(CGColorGetColorSpace(color)) + 1;
}

const CGFloat* CGColorGetComponents(CGColorRef color) { return color == nullptr ? nullptr : object(color)->components; }

CGFloat CGColorGetAlpha(CGColorRef color) { return color == nullptr ? 0 : object(color)->rgba[3]; }

CGColorSpaceRef CGColorGetColorSpace(CGColorRef color) {
    return color == nullptr ? nullptr : sharedSpace(object(color)->model);
}

bool CGColorEqualToColor(CGColorRef a, CGColorRef b) {
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return object(a)->model == object(b)->model &&
           std::equal(object(a)->components, object(a)->components + CGColorGetNumberOfComponents(a),
                      object(b)->components);
}

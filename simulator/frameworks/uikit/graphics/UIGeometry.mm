#include "simulator/frameworks/uikit/graphics/UIGeometry.h"

const UIEdgeInsets UIEdgeInsetsZero = {0, 0, 0, 0};

NSString* NSStringFromCGRect(CGRect rect) {
    return [NSString
        stringWithFormat:@"{{%g, %g}, {%g, %g}}", rect.origin.x, rect.origin.y, rect.size.width, rect.size.height];
}

NSString* NSStringFromCGSize(CGSize size) { return [NSString stringWithFormat:@"{%g, %g}", size.width, size.height]; }

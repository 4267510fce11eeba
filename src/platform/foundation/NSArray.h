// Ordered lists. Results are unowned (+0); any thread, as long as none changes the list.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSArray : NSObject {
    NSUInteger count() const { return zelka::send<NSUInteger, "count">(*this); }
    // Raises a range error when the list is shorter. The class of the element is not checked.
    template <zelka::ObjectHandle T = NSObject>
    T at(NSUInteger index) const {
        return zelka::send<T, "objectAtIndex:">(*this, index);
    }
    // nil when the list is empty.
    template <zelka::ObjectHandle T = NSObject>
    T first() const {
        return zelka::send<T, "firstObject">(*this);
    }
    // The elements' descriptions with the separator between them.
    NSString joinedBy(NSString separator) const {
        return zelka::send<NSString, "componentsJoinedByString:">(*this, separator);
    }
};

inline NSArray NSString::componentsSeparatedBy(NSString separator) const {
    return zelka::send<NSArray, "componentsSeparatedByString:">(*this, separator);
}
inline NSArray NSString::componentsSeparatedByAnyOf(NSCharacterSet separators) const {
    return zelka::send<NSArray, "componentsSeparatedByCharactersInSet:">(*this, separators);
}

// What the other folders' older spellings need until they are converted.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"

namespace platform {
using namespace zelka;
using namespace zelka::detail;
}  // namespace platform

using namespace zelka;

inline NSString descriptionOf(NSObject object) { return object.description(); }
inline NSString classNameOf(NSObject object) { return object.className(); }
inline bool isKindOf(NSObject object, Class cls) { return object.isKindOf(cls); }
inline bool respondsTo(NSObject object, SEL selector) { return object.respondsTo(selector); }
inline void performOnMainThread(NSObject object, SEL selector, bool wait) {
    object.performOnMainThread(selector, wait);
}

#pragma once

#include <objc/runtime.h>

namespace phone {

// Replaces the implementation of `method`, which `cls` itself has, and returns the previous one. What a phone's
// method_setImplementation does; the GNU runtime's forgets subclasses that were messaged before, and on a class that
// was not it writes into a dispatch table that all such classes share. Wakes no class. Any thread.
IMP setImplementation(Class cls, Method method, IMP implementation);

// The method if `cls` itself has it; null when it is inherited or missing.
Method ownMethod(Class cls, SEL selector);

}  // namespace phone

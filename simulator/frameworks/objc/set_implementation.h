#pragma once

#include <objc/runtime.h>

namespace phone {

// Replaces the implementation of `method`, which `cls` itself has, and answers the previous one; for this process, like
// method_setImplementation. That function must not be used on a class that has not been messaged yet: the GNU runtime
// gives all such classes one common dispatch table and would write into it. This one initialises nothing, either.
IMP setImplementation(Class cls, Method method, IMP implementation);

// The method if `cls` itself has it; null when it is inherited or missing.
Method ownMethod(Class cls, SEL selector);

}  // namespace phone

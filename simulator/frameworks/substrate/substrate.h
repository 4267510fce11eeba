#pragma once

// The method-hooking function of the phone's injection framework.

#include <objc/objc.h>
#include <objc/runtime.h>

#ifdef __cplusplus
extern "C" {
#endif

// Replaces the instance method `selector` of `cls` and stores in `*original` what calls the method as it was
// (`original` may be NULL). A method that `cls` inherits is overridden in `cls` only; the original then finds the
// superclass's method anew at each call. A nil class does nothing; a selector without a method is reported on
// standard error and left alone, and `*original` stays as it was. A metaclass ends the process: class methods cannot be
// hooked here. Main thread, before the method is called from others.
void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);

#ifdef __cplusplus
}
#endif

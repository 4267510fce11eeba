#import <Foundation/Foundation.h>

#include "simulator/frameworks/objc/runtime.h"

id objc_retain(id object) { return [object retain]; }
void objc_release(id object) { [object release]; }
id objc_autorelease(id object) { return [object autorelease]; }

void* objc_autoreleasePoolPush(void) { return [[NSAutoreleasePool alloc] init]; }
void objc_autoreleasePoolPop(void* pool) { [static_cast<NSAutoreleasePool*>(pool) drain]; }

// The GNU headers have this one inline only; what is compiled without them needs the function.
extern "C" Class phoneObjectGetClass(id object) __asm__("object_getClass");
Class phoneObjectGetClass(id object) { return object == nil ? Nil : object->class_pointer; }

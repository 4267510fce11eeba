#pragma once

// What the phone's Objective-C runtime has and the GNU runtime lacks, under the phone's names and calling conventions.

#include <objc/objc.h>
#include <objc/runtime.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Sends a message. Call it cast to the method's exact type. A message to nil returns zero, in every kind of result
// register.
void objc_msgSend(void);
// The same for methods that return a structure in memory, where the calling convention passes its address first
// (x86-64, 32-bit arm). On arm64 it is objc_msgSend. A message to nil leaves the structure untouched.
void objc_msgSend_stret(void);
id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);
void* objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void* pool);

typedef uintptr_t objc_AssociationPolicy;
enum : objc_AssociationPolicy {
    OBJC_ASSOCIATION_ASSIGN = 0,
    OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1,
    OBJC_ASSOCIATION_COPY_NONATOMIC = 3,
    OBJC_ASSOCIATION_RETAIN = 01401,
    OBJC_ASSOCIATION_COPY = 01403,
};
// Values are kept under the key's address until replaced, set to nil, or the object is deallocated. Any thread.
void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy);
// The value, unowned (+0), or nil.
id objc_getAssociatedObject(id object, const void* key);
void objc_removeAssociatedObjects(id object);

// Weak references: slots that become nil when their object goes. What is loaded is owned by the caller (+1). Any
// thread.
id objc_initWeak(id* slot, id object);
id objc_loadWeakRetained(id* slot);
void objc_moveWeak(id* to, id* from);
void objc_destroyWeak(id* slot);

// Declared properties, as they are added to a class; those of compiled classes are not kept, because the compiler does
// not write them for this runtime. Returns NO when the class itself has one of that name. class_getProperty,
// class_copyPropertyList, property_getName and property_getAttributes, declared by the runtime's own header, find them.
// Any thread.
struct objc_property_attribute_t {
    const char* name;
    const char* value;
};
BOOL class_addProperty(Class cls, const char* name, const objc_property_attribute_t* attributes, unsigned count);

// Blocks, per the public Block ABI. `_Block_copy`, which returns a heap block owned by the caller (+1), and
// `_Block_release` are declared by Foundation and defined here.
extern void* _NSConcreteStackBlock[];
extern void* _NSConcreteMallocBlock[];
extern void* _NSConcreteGlobalBlock[];

#ifdef __cplusplus
}
#endif

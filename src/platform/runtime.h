// The C functions of the platform's object runtime, as its public headers declare them.
#pragma once

#include <atomic>

#include "src/platform/abi.h"
#include "src/platform/fixed_string.h"

struct objc_object;
struct objc_class;
struct objc_selector;
struct objc_method;
struct objc_ivar;

using id = objc_object*;
using Class = objc_class*;
using SEL = const objc_selector*;
using Method = objc_method*;
using Ivar = objc_ivar*;
using IMP = void (*)();

extern "C" {
Class objc_getClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class cls);
Class object_getClass(id object);
const char* class_getName(Class cls);
Method class_getInstanceMethod(Class cls, SEL selector);
IMP class_getMethodImplementation(Class cls, SEL selector);
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
BOOL class_addIvar(Class cls, const char* name, std::size_t size, std::uint8_t alignment, const char* types);
const char* method_getTypeEncoding(Method method);
Ivar class_getInstanceVariable(Class cls, const char* name);
std::ptrdiff_t ivar_getOffset(Ivar variable);
Ivar object_getInstanceVariable(id object, const char* name, void** value);
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector);
void objc_setAssociatedObject(id object, const void* key, id value, std::uintptr_t policy);
id objc_getAssociatedObject(id object, const void* key);
void objc_msgSend();
void objc_msgSend_stret();
}

// The association policy that retains without atomicity (OBJC_ASSOCIATION_RETAIN_NONATOMIC).
constexpr std::uintptr_t kAssociationRetainNonatomic = 1;

namespace platform {

// Selectors and classes once looked up, by name. Zero-initialised, so that no code runs at load time; two threads that
// race here store the same value.
template <FixedString name>
inline constinit std::atomic<SEL> cachedSelector{nullptr};

template <FixedString name>
inline constinit std::atomic<Class> cachedClass{nullptr};

// Ends the process with a message that names the class: the library cannot work without it.
[[noreturn]] void missingClass(const char* name);

}  // namespace platform

// The selector of that name, registered with the runtime at most once per name. Any thread.
template <FixedString name>
inline SEL selector() {
    SEL known = platform::cachedSelector<name>.load(std::memory_order_relaxed);
    if (known == nullptr) [[unlikely]] {
        known = sel_registerName(name.c_str());
        platform::cachedSelector<name>.store(known, std::memory_order_relaxed);
    }
    return known;
}

// The platform class of that name, which every process of the platform has. Debug builds end the process when it is
// missing; release builds answer nil, to which every message is a no-op. Any thread.
template <FixedString name>
inline Class platformClass() {
    Class known = platform::cachedClass<name>.load(std::memory_order_relaxed);
    if (known == nullptr) [[unlikely]] {
        known = objc_getClass(name.c_str());
#ifndef NDEBUG
        if (known == nullptr) platform::missingClass(name.c_str());
#endif
        platform::cachedClass<name>.store(known, std::memory_order_relaxed);
    }
    return known;
}

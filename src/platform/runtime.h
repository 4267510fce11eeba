// The C functions of the platform's object runtime, as its public headers declare them, with the look-ups of selectors
// and classes by name.
#pragma once

#include <atomic>
#include <concepts>
#include <type_traits>

#include "src/platform/abi.h"
#include "src/platform/class_name.h"
#include "src/platform/fixed_string.h"

struct objc_object;
struct objc_class;
struct objc_selector;
struct objc_method;
struct objc_ivar;
struct objc_property;

using id = objc_object*;
using Class = objc_class*;
using SEL = const objc_selector*;
using Method = objc_method*;
using Ivar = objc_ivar*;
using objc_property_t = objc_property*;
using IMP = void (*)();

struct objc_property_attribute_t {
    const char* name;
    const char* value;
};

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
BOOL class_addProperty(Class cls, const char* name, const objc_property_attribute_t* attributes, unsigned count);
objc_property_t class_getProperty(Class cls, const char* name);
const char* property_getAttributes(objc_property_t property);
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

namespace zelka {

// The association policy that retains without atomicity (OBJC_ASSOCIATION_RETAIN_NONATOMIC).
constexpr std::uintptr_t kAssociationRetainNonatomic = 1;

// A trivially copyable value that holds one unowned object pointer and nothing else, so that it is passed and returned
// as the pointer itself.
template <class T>
concept ObjectHandle = std::is_trivially_copyable_v<T> && sizeof(T) == sizeof(void*) && requires(T handle) {
    { handle.object } -> std::same_as<id&>;
};

namespace detail {

// Selectors and classes once looked up, by name. Zero-initialised, so that no code runs at load time; two threads that
// race here store the same value.
template <FixedString name>
inline constinit std::atomic<SEL> cachedSelector{nullptr};

template <FixedString name>
inline constinit std::atomic<Class> cachedClass{nullptr};

// Ends the process with a message that names the class: the library cannot work without it.
[[noreturn]] void missingClass(const char* name);

}  // namespace detail

// The selector of that name, registered with the runtime at most once per name. Any thread.
template <FixedString name>
inline SEL selector() {
    SEL known = detail::cachedSelector<name>.load(std::memory_order_relaxed);
    if (known == nullptr) [[unlikely]] {
        known = sel_registerName(name.c_str());
        detail::cachedSelector<name>.store(known, std::memory_order_relaxed);
    }
    return known;
}

// The class of that name, or nil in a process that lacks it; the next call then looks it up once more. Any thread.
template <FixedString name>
inline Class optionalClass() {
    Class known = detail::cachedClass<name>.load(std::memory_order_relaxed);
    if (known == nullptr) [[unlikely]] {
        known = objc_getClass(name.c_str());
        detail::cachedClass<name>.store(known, std::memory_order_relaxed);
    }
    return known;
}

// The platform class of that name, which every process of the platform has. Debug builds end the process when it is
// missing; release builds return nil, to which every message is a no-op. Any thread.
template <FixedString name>
inline Class platformClass() {
    Class known = optionalClass<name>();
#ifndef NDEBUG
    if (known == nullptr) [[unlikely]]
        detail::missingClass(name.c_str());
#endif
    return known;
}

// The same for the class that the handle is named after.
template <ObjectHandle T>
inline Class optionalClass() {
    return optionalClass<detail::className<T>>();
}

template <ObjectHandle T>
inline Class platformClass() {
    return platformClass<detail::className<T>>();
}

}  // namespace zelka

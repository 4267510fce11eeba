// Ownership of platform objects and of CoreFoundation-like references.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include "src/platform/foundation/NSObject.h"

namespace zelka {
namespace detail {

template <class Derived, class Base>
concept SubclassOf = std::derived_from<Derived, Base> && !std::same_as<Derived, Base>;

// By message for objects, by CFRetain and CFRelease for what CoreFoundation counts.
void retainReference(NSObject object);
void retainReference(const void* reference);
void releaseReference(NSObject object);
void releaseReference(const void* reference);
void autoreleaseReference(NSObject object);
void autoreleaseReference(const void* reference);

}  // namespace detail

template <class T>
class Owned;
template <class T>
[[nodiscard]] Owned<T> adopt(T value);
template <class T>
[[nodiscard]] Owned<T> retain(T value);

// Owns one reference (+1) to an object (T is its handle) or to a CoreFoundation-like thing (T is its reference type,
// such as CGImageRef), and gives it back when it goes, on whichever thread that is. Copies retain; moves do not. Made
// by adopt, retain and allocInit.
template <class T>
// NOLINTNEXTLINE(cppcoreguidelines-special-member-functions): assignment copies or moves into its argument
class [[nodiscard]] Owned {
  public:
    constexpr Owned() = default;
    Owned(const Owned& other) : value_(other.value_) {
        if (value_) detail::retainReference(value_);
    }
    Owned(Owned&& other) noexcept : value_(std::exchange(other.value_, T{})) {}
    // From the handle of a subclass.
    template <detail::SubclassOf<T> Derived>
    // NOLINTNEXTLINE(google-explicit-constructor): a pointer to a subclass converts in the same way
    Owned(Owned<Derived> other) noexcept : value_(other.leak()) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Owned() {
        if (value_) detail::releaseReference(value_);
    }

    // The value, unowned (+0): valid as long as something owns it.
    T get() const { return value_; }
    const T* operator->() const requires ObjectHandle<T> { return &value_; }
    explicit operator bool() const { return static_cast<bool>(value_); }

    // Hands the reference to the caller (+1), for a function that returns one to the platform.
    [[nodiscard]] T leak() { return std::exchange(value_, T{}); }

    // Hands the reference to the innermost autorelease pool of this thread (+0).
    [[nodiscard]] T autorelease() {
        T value = leak();
        if (value) detail::autoreleaseReference(value);
        return value;
    }

  private:
    template <class Value>
    friend Owned<Value> adopt(Value value);

    explicit constexpr Owned(T value) : value_(value) {}

    T value_{};
};

// Takes over the reference that a Create or Copy function, alloc, new, copy or init returned (+1).
template <class T>
Owned<T> adopt(T value) {
    return Owned<T>(value);
}

// Adds a reference to a value that somebody else owns (+0).
template <class T>
Owned<T> retain(T value) {
    if (value) detail::retainReference(value);
    return adopt(value);
}

// The value, never given back: for what lives as long as the process. A comment at the call says why.
template <class T>
T keepForever(Owned<T> owned) {
    return owned.leak();
}

// A new object of the class, initialised by that message with the arguments. The class must be the handle's or one of
// its subclasses.
template <ObjectHandle T, FixedString initializer = "init", class... Arguments>
[[nodiscard]] Owned<T> allocInit(Class cls, Arguments... arguments) {
    return adopt(send<T, initializer>(send<T, "alloc">(cls), arguments...));
}

// A new object of the class that the handle is named after.
template <ObjectHandle T, FixedString initializer = "init", class... Arguments>
[[nodiscard]] Owned<T> allocInit(Arguments... arguments) {
    return allocInit<T, initializer>(platformClass<T>(), arguments...);
}

// An immutable copy of the object, under its own handle.
template <ObjectHandle T>
[[nodiscard]] Owned<T> copyOf(T object) {
    return adopt(send<T, "copy">(object));
}

}  // namespace zelka

// Handles of platform objects and the ownership of them.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include "src/platform/runtime.h"

// A trivially copyable value that holds one unowned object pointer, passed and returned as the pointer itself. Derived
// handles name platform classes and add messages, never members. A nil handle is legal.
struct NSObject {
    id object = nullptr;

    constexpr explicit operator bool() const { return object != nullptr; }
    friend constexpr bool operator==(NSObject left, NSObject right) { return left.object == right.object; }
};

template <class T>
concept ObjectHandle = std::derived_from<T, NSObject> && sizeof(T) == sizeof(NSObject);

// The handle under another class's name, as a cast of object pointers would give it; nothing is checked.
template <ObjectHandle T>
constexpr T as(NSObject handle) {
    T other;
    other.object = handle.object;
    return other;
}

namespace platform {
void retainObject(id object);
void releaseObject(id object);
void autoreleaseObject(id object);
void retainReference(const void* reference);
void releaseReference(const void* reference);
void autoreleaseReference(const void* reference);
}  // namespace platform

// Owns one reference (+1) to an object (T is its handle) or to a CoreFoundation-like thing (T is its reference type,
// such as CGImageRef), and gives it back when it goes. Copies retain.
template <class T>
class Owned {
  public:
    constexpr Owned() = default;
    Owned(const Owned& other) : value_(other.value_) { retainValue(); }
    Owned(Owned&& other) noexcept : value_(std::exchange(other.value_, T{})) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Owned() { releaseValue(); }

    // Takes over the reference that a Create, Copy, alloc, new, copy or init gave (+1).
    static Owned adopt(T value) {
        Owned owned;
        owned.value_ = value;
        return owned;
    }

    // Adds a reference to a value that somebody else owns (+0).
    static Owned retain(T value) {
        Owned owned = adopt(value);
        owned.retainValue();
        return owned;
    }

    T get() const { return value_; }
    const T* operator->() const { return &value_; }
    explicit operator bool() const { return static_cast<bool>(value_); }

    // Hands the reference to the caller (+1).
    [[nodiscard]] T leak() { return std::exchange(value_, T{}); }

    // Hands the reference to the innermost autorelease pool of this thread (+0).
    T autorelease() {
        T value = leak();
        if (!value) return value;
        if constexpr (std::is_pointer_v<T>) {
            platform::autoreleaseReference(value);
        } else {
            platform::autoreleaseObject(value.object);
        }
        return value;
    }

  private:
    void retainValue() {
        if (!value_) return;
        if constexpr (std::is_pointer_v<T>) {
            platform::retainReference(value_);
        } else {
            platform::retainObject(value_.object);
        }
    }

    void releaseValue() {
        if (!value_) return;
        if constexpr (std::is_pointer_v<T>) {
            platform::releaseReference(value_);
        } else {
            platform::releaseObject(value_.object);
        }
    }

    T value_{};
};

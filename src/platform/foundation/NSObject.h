// The root of all handles, with the messages that every object understands.
#pragma once

#include <cstring>
#include <type_traits>

#include "src/platform/send.h"

struct NSString;

// A handle: one unowned object pointer, passed and returned as the pointer itself. Derived handles bear the names of
// platform classes and add messages, never members. A nil handle is legal: its messages return zero. Results are
// unowned (+0), and any thread may call that the object's class allows.
struct NSObject {
    id object = nullptr;

    constexpr explicit operator bool() const { return object != nullptr; }
    // Whether both are the same object; isEqual compares values.
    friend constexpr bool operator==(NSObject left, NSObject right) { return left.object == right.object; }

    // A nil class has no objects.
    bool isKindOf(Class cls) const { return zelka::send<bool, "isKindOfClass:">(*this, cls); }
    bool respondsTo(SEL selector) const { return zelka::send<bool, "respondsToSelector:">(*this, selector); }
    bool isEqual(NSObject other) const { return zelka::send<bool, "isEqual:">(*this, other); }
    NSUInteger hash() const { return zelka::send<NSUInteger, "hash">(*this); }
    // Both in NSString.h.
    NSString description() const;
    NSString className() const;

    // The result is meaningful only if the method returns an object.
    template <zelka::ObjectHandle Result = NSObject>
    Result performSelector(SEL selector) const {
        return zelka::send<Result, "performSelector:">(*this, selector);
    }
    template <zelka::ObjectHandle Result = NSObject>
    Result performSelector(SEL selector, NSObject argument) const {
        return zelka::send<Result, "performSelector:withObject:">(*this, selector, argument);
    }
    // Runs the selector on the main thread, with nil as its argument; with `wait`, returns when it has finished (run at
    // once when this is the main thread).
    void performOnMainThread(SEL selector, bool wait) const {
        zelka::send<void, "performSelectorOnMainThread:withObject:waitUntilDone:">(*this, selector, NSObject{}, wait);
    }

    // The object that setAssociatedObject stored under the key's address, or nil. Any thread.
    template <zelka::ObjectHandle T = NSObject>
    T associatedObject(const void* key) const {
        T value;
        value.object = objc_getAssociatedObject(object, key);
        return value;
    }
    // Retains the value until it is replaced or this object goes (OBJC_ASSOCIATION_RETAIN_NONATOMIC).
    void setAssociatedObject(const void* key, NSObject value) const {
        objc_setAssociatedObject(object, key, value.object, zelka::kAssociationRetainNonatomic);
    }

    // The value of an instance variable that has no accessor (an object, unowned, or a truth value); zero when the
    // class has no variable of that name.
    template <class T>
    T instanceVariable(const char* name) const {
        static_assert(zelka::ObjectHandle<T> || std::is_same_v<T, bool>);
        // The runtime copies a whole pointer's worth, of which a BOOL is the first byte.
        void* stored = nullptr;
        object_getInstanceVariable(object, name, &stored);
        zelka::detail::Abi<T> value;
        std::memcpy(&value, &stored, sizeof value);
        if constexpr (std::is_same_v<T, bool>) {
            return value != 0;
        } else {
            return value;
        }
    }
};

namespace zelka {

// The handle under another class's name, as a cast of object pointers would give it; nothing is checked.
template <ObjectHandle T>
constexpr T as(NSObject object) {
    T other;
    other.object = object.object;
    return other;
}

// The handle under another class's name if the object is of that class or a subclass; otherwise nil, also in a process
// that lacks the class.
template <ObjectHandle T>
T dynamicCast(NSObject object) {
    return object.isKindOf(optionalClass<T>()) ? as<T>(object) : T{};
}

// Runs the class's +initialize if nothing has yet: the runtime runs it before the first message to the class.
inline void initializeClass(Class cls) { send<Class, "class">(cls); }

}  // namespace zelka

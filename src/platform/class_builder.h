// Registers classes, methods and declared properties with the runtime, from C++ functions and types that give the
// encodings. Nothing here locks: it is for the time while the library loads.
#pragma once

#include <span>

#include "src/platform/encoding.h"
#include "src/platform/runtime.h"

namespace zelka {

// One method of a class or category: flat data, installed by addMethods.
struct MethodRow {
    void (*install)(Class cls);
};

// One instance variable of a class.
struct IvarRow {
    const char* name;
    const char* encoding;
    std::size_t size;
};

// One declared property of a class: what @property says to the runtime, without the accessors. A null variable makes it
// dynamic: no instance variable stands behind it.
struct PropertyRow {
    const char* name;
    const char* encoding;
    const char* variable;
};

namespace detail {

template <FixedString name, auto function>
struct ReceiverMethod;

// A function that takes the receiver first.
template <FixedString name, class Result, class Receiver, class... Arguments,
          Result (*function)(Receiver, Arguments...)>
struct ReceiverMethod<name, function> {
    static_assert(name.count(':') == sizeof...(Arguments), "a selector takes one argument a colon");

    static Abi<Result> implementation(Receiver receiver, SEL, Abi<Arguments>... arguments) {
        return static_cast<Abi<Result>>(function(receiver, toNative<Arguments>(arguments)...));
    }

    static void install(Class cls) {
        class_addMethod(cls, selector<name>(), reinterpret_cast<IMP>(&implementation),
                        methodEncoding<Result, Arguments...>.c_str());
    }

  private:
    template <class Argument>
    static Argument toNative(Abi<Argument> argument) {
        if constexpr (std::is_same_v<Argument, bool>) {
            return argument != 0;
        } else {
            return argument;
        }
    }
};

// Drops the receiver for functions that have no use for it.
template <class Signature, auto function>
struct WithReceiver;

template <class Result, class... Arguments, Result (*function)(Arguments...)>
struct WithReceiver<Result(Arguments...), function> {
    static Result call(Class, Arguments... arguments) { return function(arguments...); }
};

}  // namespace detail

// A class method of the class's own: its receiver does not matter to the function. The signature picks one of the
// function's overloads.
template <FixedString name, class Signature, Signature* function>
constexpr MethodRow classMethod() {
    return {&detail::ReceiverMethod<name, &detail::WithReceiver<Signature, function>::call>::install};
}

// A method whose function takes the receiver first: an object's handle, or the Class that a class method was sent to.
template <FixedString name, auto function>
constexpr MethodRow receiverMethod() {
    return {&detail::ReceiverMethod<name, function>::install};
}

// An instance variable of type T.
template <class T>
constexpr IvarRow ivar(const char* name) {
    return {name, detail::typeEncoding<detail::Abi<T>>.c_str(), sizeof(detail::Abi<T>)};
}

// A nonatomic property of type T that the instance variable of that name holds.
template <class T>
constexpr PropertyRow property(const char* name, const char* variable) {
    return {name, detail::typeEncoding<detail::Abi<T>>.c_str(), variable};
}

// A nonatomic property of type T whose methods need no instance variable (@dynamic).
template <class T>
constexpr PropertyRow dynamicProperty(const char* name) {
    return {name, detail::typeEncoding<detail::Abi<T>>.c_str(), nullptr};
}

// Adds the methods to a class, for class methods to its metaclass (object_getClass of the class). A method that the
// class itself already has stays as it is; nil adds nothing.
void addMethods(Class cls, std::span<const MethodRow> methods);

// Declares the properties, so that class_getProperty finds them; the attributes are those that a compiler gives
// ("Declared Properties" of Apple's "Objective-C Runtime Programming Guide"). A property that the class itself already
// has stays as it is; nil adds nothing.
void addProperties(Class cls, std::span<const PropertyRow> properties);

// Registers a class under the superclass, or returns the one already registered under that name; nil when the runtime
// refuses, or when the superclass is nil.
Class registerClass(const char* name, Class superclass, std::span<const IvarRow> ivars,
                    std::span<const MethodRow> classMethods, std::span<const MethodRow> instanceMethods);

// The class that holds a class's class methods.
inline Class metaclassOf(Class cls) { return object_getClass(reinterpret_cast<id>(cls)); }

// How many bytes into an object its instance variable begins. The class must have one of that name.
inline std::ptrdiff_t variableOffset(Class cls, const char* name) {
    return ivar_getOffset(class_getInstanceVariable(cls, name));
}

}  // namespace zelka

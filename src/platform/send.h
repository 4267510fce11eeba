// send<Result, "selector:">(receiver, arguments...): a message, typed where it is sent. Handles alone send messages;
// everything else calls the handles' functions.
#pragma once

#include <type_traits>

#include "src/platform/encoding.h"
#include "src/platform/runtime.h"

namespace zelka {
namespace detail {

// Whether the ABI returns this type through memory that the caller names, for which x86-64 has a second entry point:
// structs over two registers there; never on arm64; on 32-bit arm every struct wider than a register. The rules are
// those of Apple's "Mac OS X ABI Function Call Guide" and "iOS ABI Function Call Guide".
template <class Result>
constexpr bool returnedThroughMemory() {
#if defined(__x86_64__)
    constexpr std::size_t kLargestInRegisters = 2 * sizeof(void*);
#elif defined(__arm__)
    constexpr std::size_t kLargestInRegisters = sizeof(void*);
#else
    constexpr auto kLargestInRegisters = static_cast<std::size_t>(-1);
#endif
    if constexpr (std::is_class_v<Result>) {
        return sizeof(Result) > kLargestInRegisters;
    } else {
        return false;
    }
}

template <class Result>
IMP messenger() {
    if constexpr (returnedThroughMemory<Result>()) {
        return &objc_msgSend_stret;
    } else {
        return &objc_msgSend;
    }
}

// Ends the process with a message when the class implements the selector with other types than the call passes.
void verifyCall(Class cls, SEL selector, const char* encoding);

#ifndef NDEBUG
// The class that each kind of call was last checked against.
template <FixedString name, class Result, class... Arguments>
inline constinit std::atomic<Class> checkedClass{nullptr};

template <FixedString name, class Result, class... Arguments>
void checkCall(id receiver) {
    Class cls = object_getClass(receiver);
    auto& checked = checkedClass<name, Result, Arguments...>;
    if (checked.load(std::memory_order_relaxed) == cls) return;
    verifyCall(cls, selector<name>(), methodEncoding<Result, Arguments...>.c_str());
    checked.store(cls, std::memory_order_relaxed);
}
#endif

template <class Result, class... Arguments>
inline Result call(IMP implementation, id receiver, SEL selector, Arguments... arguments) {
    using Function = Abi<Result> (*)(id, SEL, Abi<Arguments>...);
    auto function = reinterpret_cast<Function>(implementation);
    if constexpr (std::is_same_v<Result, bool>) {
        return function(receiver, selector, static_cast<Abi<Arguments>>(arguments)...) != 0;
    } else {
        return function(receiver, selector, static_cast<Abi<Arguments>>(arguments)...);
    }
}

template <class Result, FixedString name, class... Arguments>
inline Result sendTo(id receiver, Arguments... arguments) {
    static_assert(name.count(':') == sizeof...(Arguments), "a selector takes one argument a colon");
    if (receiver == nullptr) return Result();
#ifndef NDEBUG
    checkCall<name, Result, Arguments...>(receiver);
#endif
    return call<Result>(messenger<Result>(), receiver, selector<name>(), arguments...);
}

}  // namespace detail

// Sends the message to the object and returns its result; for a nil receiver returns zero, whatever the result's type,
// without a call. Results are unowned (+0) unless the selector begins with alloc, new, copy, mutableCopy or init, which
// return +1. Any thread that the receiver's class allows. Debug builds check the types against the receiver's method.
template <class Result = void, FixedString name, ObjectHandle Receiver, class... Arguments>
inline Result send(Receiver receiver, Arguments... arguments) {
    return detail::sendTo<Result, name>(receiver.object, arguments...);
}

// The same to a class.
template <class Result = void, FixedString name, class... Arguments>
inline Result send(Class receiver, Arguments... arguments) {
    return detail::sendTo<Result, name>(reinterpret_cast<id>(receiver), arguments...);
}

// Calls what the superclass that the handle is named after implements for the selector: a message to super. The
// receiver may not be nil.
template <class Result, FixedString name, ObjectHandle Superclass, ObjectHandle Receiver, class... Arguments>
inline Result sendSuper(Receiver receiver, Arguments... arguments) {
    static_assert(name.count(':') == sizeof...(Arguments), "a selector takes one argument a colon");
    IMP implementation = class_getMethodImplementation(platformClass<Superclass>(), selector<name>());
    return detail::call<Result>(implementation, receiver.object, selector<name>(), arguments...);
}

}  // namespace zelka

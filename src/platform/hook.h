// Replacements of host methods, as flat data.
#pragma once

#include "src/platform/encoding.h"
#include "src/platform/runtime.h"

// The injector's function for replacing a method. Stores the implementation that the class had, its own or inherited,
// before it installs the replacement; does nothing for a nil class.
extern "C" void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* previous);

namespace zelka {

// One row of a hook table: installs itself on the class of that name; a class that the process lacks is nil, and
// nothing is installed.
struct HookRow {
    const char* className;
    void (*install)(Class cls);
};

namespace detail {

template <auto replacement>
struct HookTypes;

template <class Result, class Receiver, class... Arguments, Result (*replacement)(Receiver, SEL, Arguments...)>
struct HookTypes<replacement> {
    using Function = Result (*)(Receiver, SEL, Arguments...);
    static constexpr std::size_t kArgumentCount = sizeof...(Arguments);
};

}  // namespace detail

// Declares in one expression the class, the selector, the replacement (whose arguments are the receiver, the selector
// and the method's own, in the ABI's types) and the slot that keeps the host's previous implementation.
template <FixedString className, FixedString selectorName, auto replacement>
class Hook {
    using Types = detail::HookTypes<replacement>;
    static_assert(selectorName.count(':') == Types::kArgumentCount, "a selector takes one argument a colon");

    // Written once while the library loads, before the host can call the replacement.
    static inline constinit IMP previous = nullptr;

    static void install(Class cls) {
        MSHookMessageEx(cls, selector<selectorName>(), reinterpret_cast<IMP>(replacement), &previous);
    }

  public:
    static constexpr HookRow row{className.c_str(), &install};

    // Calls the host's implementation, with the receiver and the selector that the replacement was called with, and
    // returns its result. On the thread of the replacement.
    template <class... Arguments>
    static auto host(Arguments... arguments) {
        return reinterpret_cast<typename Types::Function>(previous)(arguments...);
    }
};

// Declares a method that the library adds to a host class. The encoding is given, not derived: the runtime keeps it for
// introspection alone.
template <FixedString className, FixedString selectorName, FixedString encoding, auto implementation>
class AddedMethod {
    using Types = detail::HookTypes<implementation>;
    static_assert(selectorName.count(':') == Types::kArgumentCount, "a selector takes one argument a colon");

    static void install(Class cls) {
        if (cls == nullptr) return;
        class_addMethod(cls, selector<selectorName>(), reinterpret_cast<IMP>(implementation), encoding.c_str());
    }

  public:
    static constexpr HookRow row{className.c_str(), &install};
};

}  // namespace zelka

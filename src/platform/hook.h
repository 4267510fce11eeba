// Replacements of host methods, as flat data.
#pragma once

#include "src/platform/encoding.h"
#include "src/platform/runtime.h"

extern "C" void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* previous);

// One row of a hook table: installs itself on the class of that name; a class that the process lacks is nil, and
// nothing is installed.
struct HookRow {
    const char* className;
    void (*install)(Class cls);
};

namespace platform {

template <auto replacement>
struct HookTypes;

template <class Result, class Receiver, class... Arguments, Result (*replacement)(Receiver, SEL, Arguments...)>
struct HookTypes<replacement> {
    using Function = Result (*)(Receiver, SEL, Arguments...);
    static constexpr std::size_t argumentCount = sizeof...(Arguments);
};

}  // namespace platform

// Declares in one expression the class, the selector, the replacement (whose arguments are the receiver, the selector
// and the method's own, in the ABI's types) and the slot that keeps the host's previous implementation.
template <FixedString className, FixedString selectorName, auto replacement>
class Hook {
    using Types = platform::HookTypes<replacement>;
    static_assert(selectorName.count(':') == Types::argumentCount, "a selector takes one argument a colon");

    // Written once while the library loads, before the host can call the replacement.
    static inline constinit typename Types::Function previous = nullptr;

    static void install(Class cls) {
        MSHookMessageEx(cls, selector<selectorName>(), reinterpret_cast<IMP>(replacement),
                        reinterpret_cast<IMP*>(&previous));
    }

  public:
    static constexpr HookRow row{className.c_str(), &install};

    // Calls the host's implementation, with the receiver and the selector that the replacement was called with.
    template <class... Arguments>
    static auto host(Arguments... arguments) {
        return previous(arguments...);
    }
};

// Declares a method that the library adds to a host class. The encoding is told, not derived: the runtime keeps it for
// introspection alone.
template <FixedString className, FixedString selectorName, FixedString encoding, auto implementation>
class AddedMethod {
    using Types = platform::HookTypes<implementation>;
    static_assert(selectorName.count(':') == Types::argumentCount, "a selector takes one argument a colon");

    static void install(Class cls) {
        if (cls == nullptr) return;
        class_addMethod(cls, selector<selectorName>(), reinterpret_cast<IMP>(implementation), encoding.c_str());
    }

  public:
    static constexpr HookRow row{className.c_str(), &install};
};

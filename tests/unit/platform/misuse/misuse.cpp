// Each MISUSE is a mistake that the compiler must refuse; 0 is the same code without one.
#include "src/platform/class_builder.h"
#include "src/platform/foundation.h"
#include "src/platform/hook.h"

#ifndef MISUSE
#error "say which misuse"
#endif

struct Unknown {
    int a, b;
};

bool takesOne(NSObject, int);
int replacement(NSObject, SEL, int);

void use(NSObject object) {
#if MISUSE == 0
    send<void, "setObject:forKey:">(object, object, object);
    constexpr auto row = receiverMethod<"take:", &takesOne>();
    constexpr auto hook = Hook<"Class", "take:", &replacement>::row;
    static_cast<void>(row);
    static_cast<void>(hook);
#elif MISUSE == 1
    send<void, "setObject:forKey:">(object, object);
#elif MISUSE == 2
    send<void, "count">(object, object);
#elif MISUSE == 3
    constexpr auto row = receiverMethod<"take:two:", &takesOne>();
    static_cast<void>(row);
#elif MISUSE == 4
    constexpr auto row = Hook<"Class", "take", &replacement>::row;
    static_cast<void>(row);
#elif MISUSE == 5
    constexpr auto row = AddedMethod<"Class", "take:two:", "v@:@@", &replacement>::row;
    static_cast<void>(row);
#elif MISUSE == 6
    send<void, "take:">(object, Unknown{1, 2});
#elif MISUSE == 7
    // A handle of a class is not one of another.
    NSString text = NSArray{};
    static_cast<void>(text);
#elif MISUSE == 8
    // A reference is owned only through adopt or retain.
    Owned<NSObject> owned = object;
    static_cast<void>(owned);
#elif MISUSE == 9
    // What is handed over must be taken.
    Owned<NSObject>::retain(object).leak();
#endif
}

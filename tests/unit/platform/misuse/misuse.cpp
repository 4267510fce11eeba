// Each MISUSE is a mistake that the compiler must refuse; 0 is the same code without one.
#include "src/platform/block.h"
#include "src/platform/class_builder.h"
#include "src/platform/core_graphics.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/hook.h"

#ifndef MISUSE
#error "say which misuse"
#endif

namespace zelka {

struct Unknown {
    int a, b;
};

struct Throwing {
    Throwing();
    Throwing(const Throwing&);
    void operator()() const;
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
    Owned<NSObject> owned = NSMutableString::create();
    owned = adopt(retain(object).leak());
    static_cast<void>(owned->hash());
    static_cast<void>(keepForever(makeBlock([] {})));
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
    retain(object).leak();
#elif MISUSE == 10
    // What is owned must be kept.
    adopt(object);
#elif MISUSE == 11
    NSMutableString::create();
#elif MISUSE == 12
    // A superclass's object need not be one of the subclass.
    Owned<NSString> text = allocInit<NSObject>();
    static_cast<void>(text);
#elif MISUSE == 13
    // A CoreFoundation reference has no members.
    static_cast<void>(adopt<CGImageRef>(nullptr).operator->());
#elif MISUSE == 14
    // The runtime's C code cannot pass an exception on.
    makeBlock(Throwing()).get();
#elif MISUSE == 15
    // Autoreleased objects are the pool's: nothing else refers to what is thrown away here.
    retain(object).autorelease();
#elif MISUSE == 16
    // A handle holds its object and nothing else, or it would not be passed as a pointer.
    struct Wide : NSObject {
        int more;
    };
    send<void, "take">(Wide{});
#endif
}

}  // namespace zelka

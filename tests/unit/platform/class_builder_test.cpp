#include "src/platform/class_builder.h"

#include <gtest/gtest.h>

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/hook.h"
#include "tests/unit/platform/witness.h"

namespace zelka {
namespace {

bool opposite(NSObject, bool given) { return !given; }
CGSize sizeOfWidth(NSObject, CGFloat width) { return {width, 2 * width}; }
NSString nameOf(NSObject object) { return object.className(); }
int add(int left, int right) { return left + right; }
int add(int only) { return only; }

constexpr MethodRow kInstanceMethods[] = {
    receiverMethod<"opposite:", &opposite>(),
    receiverMethod<"sizeOfWidth:", &sizeOfWidth>(),
    receiverMethod<"name", &nameOf>(),
};
constexpr MethodRow kClassMethods[] = {
    classMethod<"add:to:", int(int, int), &add>(),
    classMethod<"add:", int(int), &add>(),
};
constexpr PropertyRow kProperties[] = {
    property<bool>("flag", "_flag"),
    property<NSObject>("object", "_object"),
    dynamicProperty<NSInteger>("number"),
};
constexpr IvarRow kVariables[] = {ivar<bool>("_flag"), ivar<NSObject>("_object"), ivar<CGRect>("_rect")};

class Registration : public testing::Test {
  protected:
    AutoreleasePool pool;
    Class cls =
        registerClass("RegisteredByTest", platformClass<NSObject>(), kVariables, kClassMethods, kInstanceMethods);
    Owned<NSObject> object = adopt(send<NSObject, "new">(cls));
};

TEST_F(Registration, MethodsAnswerMessagesFromObjectiveC) {
    EXPECT_EQ(callerTruth(object.get().object, 1), 0);
    EXPECT_EQ(callerTruth(object.get().object, 0), 1);
    EXPECT_EQ(callerTruth(object.get().object, 128), 0);
    EXPECT_EQ(callerWidth(object.get().object, 2.5), 2.5);
    EXPECT_STREQ(callerText(object.get().object), "RegisteredByTest");
    EXPECT_EQ(callerSum(cls, 40, 2), 42);
}

TEST_F(Registration, OverloadsAreToldApartByTheirSignature) {
    EXPECT_EQ((send<int, "add:">(cls, 5)), 5);
    EXPECT_EQ((send<int, "add:to:">(cls, 5, 6)), 11);
}

TEST_F(Registration, EncodingsAreThoseOfTheTypes) {
    auto encoding = [](Class of, SEL name) { return method_getTypeEncoding(class_getInstanceMethod(of, name)); };
    EXPECT_STREQ(encoding(cls, selector<"opposite:">()), "C@:C");
    EXPECT_STREQ(encoding(cls, selector<"sizeOfWidth:">()), "{CGSize=dd}@:d");
    EXPECT_STREQ(encoding(cls, selector<"name">()), "@@:");
    EXPECT_STREQ(encoding(metaclassOf(cls), selector<"add:to:">()), "i@:ii");
}

TEST_F(Registration, VariablesAreAlignedAndInOrder) {
    auto offset = [this](const char* name) { return ivar_getOffset(class_getInstanceVariable(cls, name)); };
    EXPECT_LT(offset("_flag"), offset("_object"));
    EXPECT_LT(offset("_object"), offset("_rect"));
    EXPECT_EQ(offset("_object") % static_cast<std::ptrdiff_t>(alignof(void*)), 0);
    EXPECT_EQ(offset("_rect") % static_cast<std::ptrdiff_t>(alignof(double)), 0);
}

TEST_F(Registration, PropertiesAreDeclaredAsACompilerWould) {
    auto attributes = [this](const char* name) { return property_getAttributes(class_getProperty(cls, name)); };
    addProperties(cls, kProperties);
    EXPECT_STREQ(attributes("flag"), "TC,N,V_flag");
    EXPECT_STREQ(attributes("object"), "T@,N,V_object");
    EXPECT_STREQ(attributes("number"), "Tq,D,N");
    EXPECT_EQ(class_getProperty(cls, "rect"), nullptr);
    addProperties(nullptr, kProperties);
}

TEST_F(Registration, ASecondTimeAnswersTheClassThatIsThere) {
    EXPECT_EQ(registerClass("RegisteredByTest", platformClass<NSObject>(), {}, {}, {}), cls);
}

TEST_F(Registration, AClassInheritsFromTheOneThatItIsRegisteredUnder) {
    Owned<NSObject> heir = allocInit<NSObject>(registerClass("RegisteredHeir", cls, {}, {}, {}));
    EXPECT_TRUE(heir->isKindOf(cls));
    EXPECT_STREQ(callerText(heir.get().object), "RegisteredHeir");
}

TEST_F(Registration, WithoutASuperclassThereIsNoClass) {
    EXPECT_EQ(registerClass("RegisteredOrphan", nullptr, {}, {}, {}), nullptr);
    EXPECT_EQ(objc_getClass("RegisteredOrphan"), nullptr);
}

TEST_F(Registration, AMethodThatTheClassHasStays) {
    static constexpr MethodRow rows[] = {receiverMethod<"name", +[](NSObject) { return NSString{}; }>()};
    addMethods(cls, rows);
    EXPECT_STREQ(callerText(object.get().object), "RegisteredByTest");
    addMethods(nullptr, rows);
}

NSString superDescription(NSObject object) {
    return sendSuper<NSString, "description", NSObject>(object).appending(literal<"!">());
}

TEST(Super, IsTheSuperclasssImplementation) {
    static constexpr MethodRow kMethods[] = {receiverMethod<"description", &superDescription>()};
    AutoreleasePool pool;
    Owned<NSObject> object =
        allocInit<NSObject>(registerClass("RegisteredWithSuper", platformClass<NSObject>(), {}, {}, kMethods));
    const std::string description = object->description().utf8();
    EXPECT_EQ(description.rfind("<RegisteredWithSuper: ", 0), 0U) << description;
    EXPECT_EQ(description.back(), '!');
}

int hookedNumber(NSObject receiver, SEL command, int given);
using NumberHook = Hook<"HookOwner", "number:", &hookedNumber>;
int hookedNumber(NSObject receiver, SEL command, int given) {
    return 1000 + NumberHook::host(receiver, command, given);
}

int inheritedNumber(NSObject receiver, SEL command, int given);
using InheritedHook = Hook<"HookChild", "number:", &inheritedNumber>;
int inheritedNumber(NSObject receiver, SEL command, int given) {
    return 2000 + InheritedHook::host(receiver, command, given);
}

TEST(Hooks, CallTheHostThroughASlotOfTheirOwn) {
    Class owner = objc_getClass(NumberHook::row.className);
    NumberHook::row.install(owner);
    InheritedHook::row.install(objc_getClass(InheritedHook::row.className));
    auto object = adopt(send<NSObject, "new">(owner));
    EXPECT_EQ(callerNumber(object.get().object, 1), 1101);
    EXPECT_EQ(childRuns(), 1);
    auto child = adopt(NSObject{static_cast<id>(childMake())});
    EXPECT_EQ(callerNumber(child.get().object, 1), 2002);
    EXPECT_EQ(parentRuns(), 1);
    // The superclass's own objects are left alone.
    auto parent = adopt(NSObject{static_cast<id>(parentMake())});
    EXPECT_EQ(callerNumber(parent.get().object, 1), 2);
}

int addedNumber(NSObject, SEL, int given) { return given * 2; }

TEST(Hooks, AddedMethodsOverrideInheritedOnesButNotTheClasssOwn) {
    using ToOwner = AddedMethod<"HookOwner", "number:", "i@:i", &addedNumber>;
    using ToChild = AddedMethod<"HookChild", "number:", "i@:i", &addedNumber>;
    ToOwner::row.install(objc_getClass("HookOwner"));
    ToChild::row.install(objc_getClass("HookChild"));
    auto owner = adopt(send<NSObject, "new">(objc_getClass("HookOwner")));
    EXPECT_EQ(callerNumber(owner.get().object, 5), 105);
    auto child = adopt(NSObject{static_cast<id>(childMake())});
    EXPECT_EQ(callerNumber(child.get().object, 5), 10);
}

}  // namespace
}  // namespace zelka

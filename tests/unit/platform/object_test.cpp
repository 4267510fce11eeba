#include <gtest/gtest.h>

#include "src/platform/class_builder.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSValue.h"

// A handle of a class that no process has.
struct NoSuchClassAnywhere : NSObject {};

// The handle of a class that the tests register.
struct RegisteredHandle : NSObject {};

namespace zelka {
namespace {

// A handle that is not global.
namespace scope {
struct NSArray : ::NSArray {};
}  // namespace scope

class Object : public testing::Test {
  protected:
    AutoreleasePool pool;
    NSString text = NSString::fromUTF8("text");
    NSObject nothing;
};

TEST_F(Object, ComparesByIdentityAndByValue) {
    Owned<NSMutableString> equal = NSMutableString::create();
    equal->appendString(text);
    EXPECT_FALSE(equal.get() == text);
    EXPECT_TRUE(equal->isEqual(text));
    EXPECT_FALSE(text.isEqual(NSNumber::of(1)));
    EXPECT_EQ(equal->hash(), text.hash());
}

TEST_F(Object, KnowsItsClassAndMessages) {
    EXPECT_TRUE(text.isKindOf(platformClass<NSString>()));
    EXPECT_FALSE(text.isKindOf(platformClass<NSArray>()));
    EXPECT_FALSE(text.isKindOf(nullptr));
    EXPECT_TRUE(text.respondsTo(selector<"uppercaseString">()));
    EXPECT_FALSE(text.respondsTo(selector<"objectAtIndex:">()));
    EXPECT_STREQ(NSNumber::of(7).description().utf8(), "7");
    EXPECT_STREQ(allocInit<NSObject>()->className().utf8(), "NSObject");
}

TEST_F(Object, PerformsSelectors) {
    EXPECT_STREQ(text.performSelector<NSString>(selector<"uppercaseString">()).utf8(), "TEXT");
    EXPECT_STREQ(text.performSelector<NSString>(selector<"stringByAppendingString:">(), text).utf8(), "texttext");
    Owned<NSMutableDictionary> dictionary = NSMutableDictionary::create();
    dictionary->setObject(text, text);
    dictionary->performOnMainThread(selector<"removeAllObjects">(), true);
    EXPECT_EQ(dictionary->count(), 0U);
}

TEST_F(Object, KeepsAssociatedObjects) {
    static constexpr char kKey[] = "key";
    static constexpr char kOtherKey[] = "key of the same kind";
    Owned<NSObject> carrier = allocInit<NSObject>();
    {
        AutoreleasePool inner;
        carrier->setAssociatedObject(kKey, NSNumber::ofInteger(1234567890));
    }
    EXPECT_EQ(carrier->associatedObject<NSNumber>(kKey).integerValue(), 1234567890);
    EXPECT_FALSE(carrier->associatedObject(kOtherKey));
    carrier->setAssociatedObject(kKey, {});
    EXPECT_FALSE(carrier->associatedObject(kKey));
}

TEST_F(Object, OfNilReturnsZero) {
    EXPECT_FALSE(nothing.isKindOf(platformClass<NSObject>()));
    EXPECT_FALSE(nothing.respondsTo(selector<"description">()));
    EXPECT_FALSE(nothing.isEqual(text));
    EXPECT_EQ(nothing.hash(), 0U);
    EXPECT_FALSE(nothing.description());
    EXPECT_FALSE(nothing.className());
    EXPECT_FALSE(nothing.performSelector(selector<"description">()));
    EXPECT_FALSE(nothing.instanceVariable<bool>("isa"));
}

TEST_F(Object, ReadsInstanceVariables) {
    static constexpr IvarRow kVariables[] = {ivar<bool>("_off"), ivar<bool>("_on"), ivar<bool>("_offToo"),
                                             ivar<NSObject>("_object")};
    Class cls = registerClass("RegisteredHandle", platformClass<NSObject>(), kVariables, {}, {});
    Owned<RegisteredHandle> object = allocInit<RegisteredHandle>();
    ASSERT_TRUE(static_cast<bool>(object));
    auto* bytes = reinterpret_cast<char*>(object.get().object);
    bytes[variableOffset(cls, "_on")] = 1;
    *reinterpret_cast<id*>(bytes + variableOffset(cls, "_object")) = text.object;
    EXPECT_FALSE(object->instanceVariable<bool>("_off"));
    EXPECT_TRUE(object->instanceVariable<bool>("_on"));
    EXPECT_FALSE(object->instanceVariable<bool>("_offToo"));
    EXPECT_EQ(object->instanceVariable<NSString>("_object"), text);
    EXPECT_FALSE(object->instanceVariable<NSString>("_missing"));
    EXPECT_FALSE(object->instanceVariable<bool>("_missing"));
    *reinterpret_cast<id*>(bytes + variableOffset(cls, "_object")) = nullptr;
}

TEST_F(Object, IsCastToTheClassesItIsOf) {
    Owned<NSMutableString> mutableText = NSMutableString::create();
    EXPECT_EQ(dynamicCast<NSString>(mutableText.get()), mutableText.get());
    EXPECT_EQ(dynamicCast<NSObject>(text), text);
    EXPECT_FALSE(dynamicCast<NSArray>(text));
    EXPECT_FALSE(dynamicCast<NSString>(nothing));
    EXPECT_FALSE(dynamicCast<NoSuchClassAnywhere>(text));
}

TEST_F(Object, HasTheClassThatItsHandleIsNamedAfter) {
    EXPECT_EQ(platformClass<NSMutableString>(), objc_getClass("NSMutableString"));
    EXPECT_EQ(platformClass<NSMutableString>(), platformClass<"NSMutableString">());
    EXPECT_EQ(optionalClass<NoSuchClassAnywhere>(), nullptr);
    EXPECT_EQ(platformClass<scope::NSArray>(), objc_getClass("NSArray"));
}

}  // namespace
}  // namespace zelka

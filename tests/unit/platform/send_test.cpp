#include "src/platform/send.h"

#include <gtest/gtest.h>

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "tests/unit/platform/witness.h"

namespace zelka {
namespace {

NSObject makeWitness() { return NSObject{static_cast<id>(witnessMake())}; }

class Send : public testing::Test {
  protected:
    AutoreleasePool pool;
    Owned<NSObject> witness = adopt(makeWitness());
    NSObject nothing;
};

TEST_F(Send, BringsBackEveryKindOfResult) {
    NSObject object = witness.get();
    EXPECT_TRUE((send<bool, "isTrue">(object)));
    EXPECT_FALSE((send<bool, "isFalse">(object)));
    EXPECT_EQ((send<signed char, "byte">(object)), -7);
    EXPECT_EQ((send<std::uint16_t, "halfWord">(object)), 65535);
    EXPECT_EQ((send<std::int32_t, "word">(object)), -2000000000);
    EXPECT_EQ((send<std::int64_t, "longWord">(object)), -9000000000000000000LL);
    EXPECT_EQ((send<float, "single">(object)), 1.5F);
    EXPECT_EQ((send<double, "precise">(object)), 2.25);
    EXPECT_EQ((send<NSObject, "myself">(object)), object);
    EXPECT_EQ((send<Class, "myClass">(object)), objc_getClass("Witness"));
    EXPECT_STREQ(sel_getName(send<SEL, "mySelector">(object)), "mySelector");
    EXPECT_STREQ((send<const char*, "text">(object)), "text");
    send<void, "nothing">(object);
}

TEST_F(Send, BringsBackStructsInRegistersAndInMemory) {
    auto point = send<CGPoint, "point">(witness.get());
    EXPECT_EQ(point.x + 10 * point.y, 21);
    auto size = send<CGSize, "size">(witness.get());
    EXPECT_EQ(size.width + 10 * size.height, 43);
    auto range = send<NSRange, "range">(witness.get());
    EXPECT_EQ(range.location + 100 * range.length, 1009U);
    auto rect = send<CGRect, "rect">(witness.get());
    EXPECT_EQ(rect.origin.x + 10 * rect.origin.y + 100 * rect.size.width + 1000 * rect.size.height, 8765);
}

TEST_F(Send, PassesEveryKindOfArgument) {
    auto moved =
        send<CGRect, "rect:movedBy:truly:">(witness.get(), makeRect(1, 2, 3, 4), static_cast<CGFloat>(10), true);
    EXPECT_EQ(moved.origin.x, 11);
    EXPECT_EQ(moved.size.height, 4);
    moved = send<CGRect, "rect:movedBy:truly:">(witness.get(), makeRect(1, 2, 3, 4), static_cast<CGFloat>(10), false);
    EXPECT_EQ(moved.origin.x, 1);
    auto sum = send<double, "sumOfByte:half:word:wide:single:precise:octet:positive:point:integer:">(
        witness.get(), static_cast<signed char>(-1), static_cast<std::int16_t>(20), std::int32_t{300},
        std::int64_t{4000}, 0.5F, 0.25, static_cast<unsigned char>(200), 4000000000U, CGPoint{0.125, 0.0625},
        NSInteger{-5});
    EXPECT_EQ(sum, -1 + 20 + 300 + 4000 + 0.5 + 0.25 + 200 + 4000000000.0 + 0.125 + 0.0625 - 5);
}

TEST_F(Send, ToNilAnswersZeroForEveryKindOfResult) {
    EXPECT_FALSE((send<bool, "isTrue">(nothing)));
    EXPECT_EQ((send<signed char, "byte">(nothing)), 0);
    EXPECT_EQ((send<std::uint16_t, "halfWord">(nothing)), 0);
    EXPECT_EQ((send<std::int32_t, "word">(nothing)), 0);
    EXPECT_EQ((send<std::int64_t, "longWord">(nothing)), 0);
    EXPECT_EQ((send<float, "single">(nothing)), 0);
    EXPECT_EQ((send<double, "precise">(nothing)), 0);
    EXPECT_FALSE((send<NSObject, "myself">(nothing)));
    EXPECT_EQ((send<Class, "myClass">(nothing)), nullptr);
    EXPECT_EQ((send<SEL, "mySelector">(nothing)), nullptr);
    EXPECT_EQ((send<const char*, "text">(nothing)), nullptr);
    auto point = send<CGPoint, "point">(nothing);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 0);
    auto size = send<CGSize, "size">(nothing);
    EXPECT_EQ(size.width, 0);
    EXPECT_EQ(size.height, 0);
    auto range = send<NSRange, "range">(nothing);
    EXPECT_EQ(range.location, 0U);
    EXPECT_EQ(range.length, 0U);
    auto rect = send<CGRect, "rect">(nothing);
    EXPECT_EQ(rect.origin.x, 0);
    EXPECT_EQ(rect.origin.y, 0);
    EXPECT_EQ(rect.size.width, 0);
    EXPECT_EQ(rect.size.height, 0);
    send<void, "nothing">(nothing);
}

TEST_F(Send, ToANilClassAnswersZeroToo) { EXPECT_FALSE((send<NSObject, "alloc">(static_cast<Class>(nullptr)))); }

TEST_F(Send, KeepsSelectorsAndClasses) {
    EXPECT_EQ(selector<"kept:">(), selector<"kept:">());
    EXPECT_STREQ(sel_getName(selector<"kept:">()), "kept:");
    EXPECT_EQ(platformClass<"Witness">(), objc_getClass("Witness"));
}

using SendDeathTest = Send;

TEST_F(SendDeathTest, WithAnotherResultTypeThanTheMethodsEndsTheProcess) {
    NSObject object = witness.get();
    EXPECT_DEATH((send<double, "word">(object)), "Witness implements word as \"i.*\", but is called as \"d@:\"");
}

TEST_F(SendDeathTest, WithAnotherArgumentTypeThanTheMethodsEndsTheProcess) {
    NSObject object = witness.get();
    EXPECT_DEATH((send<CGRect, "rect:movedBy:truly:">(object, makeRect(0, 0, 1, 1), 10, true)),
                 "Witness implements rect:movedBy:truly: as");
}

TEST_F(SendDeathTest, WithAnIntegerOfAnotherWidthEndsTheProcess) {
    NSObject object = witness.get();
    EXPECT_DEATH((send<std::int64_t, "word">(object)), "but is called as \"q@:\"");
}

TEST_F(SendDeathTest, ToAClassThatEveryProcessShouldHaveEndsTheProcessWhenItIsMissing) {
    EXPECT_DEATH(platformClass<"NoSuchClassAnywhere">(), "this process has no class NoSuchClassAnywhere");
}

}  // namespace
}  // namespace zelka

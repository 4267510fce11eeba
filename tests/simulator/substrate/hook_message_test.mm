#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include "simulator/frameworks/substrate/substrate.h"

namespace {
struct Box {
    double a, b, c, d;
};
}  // namespace

@interface Parent : NSObject
- (int)number;
- (Box)box:(double)x with:(int)n;
@end
@implementation Parent
- (int)number {
    return 1;
}
- (Box)box:(double)x with:(int)n {
    return {x, x + n, x + 2 * n, x + 3 * n};
}
- (double)mix:(int)a b:(int)b c:(int)c d:(int)d e:(int)e f:(int)f x:(double)x y:(float)y {
    return a + b + c + d + e + f + x + y;
}
@end
@interface Child : Parent
@end
@implementation Child
- (int)own {
    return 5;
}
@end
@interface Grandchild : Child
@end
@implementation Grandchild
@end
@interface Sibling : Parent
@end
@implementation Sibling
@end

static bool sleeperWoke = false;
@interface Sleeper : NSObject
@end
@implementation Sleeper
+ (void)initialize {
    sleeperWoke = true;
}
- (int)number {
    return 8;
}
@end
@interface OtherSleeper : NSObject
@end
@implementation OtherSleeper
- (int)number {
    return 9;
}
@end

namespace {

using Number = int (*)(id, SEL);
using MakeBox = Box (*)(id, SEL, double, int);
using Mix = double (*)(id, SEL, int, int, int, int, int, int, double, float);

Number childOriginal, secondOriginal, parentOriginal, ownOriginal;
MakeBox boxOriginal;
Mix mixOriginal;

int childNumber(id self, SEL selector) { return childOriginal(self, selector) + 100; }
int secondNumber(id self, SEL selector) { return secondOriginal(self, selector) * 2; }
int parentNumber(id self, SEL selector) { return parentOriginal(self, selector) + 1000; }
int ownNumber(id self, SEL selector) { return ownOriginal(self, selector) + 1; }
Box childBox(id self, SEL selector, double x, int n) {
    Box box = boxOriginal(self, selector, x, n);
    box.a = -box.a;
    return box;
}
double childMix(id self, SEL selector, int a, int b, int c, int d, int e, int f, double x, float y) {
    return -mixOriginal(self, selector, a, b, c, d, e, f, x, y);
}

template <typename Function>
void hook(Class cls, const char* selector, Function replacement, Function* original) {
    MSHookMessageEx(cls, sel_registerName(selector), reinterpret_cast<IMP>(replacement),
                    reinterpret_cast<IMP*>(original));
}

id make(Class cls) { return [[[cls alloc] init] autorelease]; }

class HookMessage : public testing::Test {
  protected:
    void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
    void TearDown() override { [pool_ drain]; }
    NSAutoreleasePool* pool_ = nil;
};

TEST_F(HookMessage, ReplacesAnOwnMethodAndSavesIt) {
    hook([Child class], "own", ownNumber, &ownOriginal);
    EXPECT_EQ([make([Child class]) own], 6);
    EXPECT_EQ([make([Grandchild class]) own], 6);
}

TEST_F(HookMessage, ReachesSubclassesThatAreInUse) {
    id grandchild = make([Grandchild class]);
    EXPECT_EQ([grandchild own], 5);
    EXPECT_EQ([grandchild number], 1);
    hook([Child class], "own", ownNumber, &ownOriginal);
    EXPECT_EQ([grandchild own], 6);
    hook([Parent class], "number", parentNumber, &parentOriginal);
    EXPECT_EQ([grandchild number], 1001);
    hook([Child class], "number", childNumber, &childOriginal);
    EXPECT_EQ([grandchild number], 1101);
}

TEST_F(HookMessage, OverridesAnInheritedMethodInTheNamedClassOnly) {
    id child = make([Child class]);
    EXPECT_EQ([child number], 1);
    hook([Child class], "number", childNumber, &childOriginal);
    EXPECT_EQ([child number], 101);
    EXPECT_EQ([make([Grandchild class]) number], 101);
    EXPECT_EQ([make([Parent class]) number], 1);
    EXPECT_EQ([make([Sibling class]) number], 1);
    EXPECT_EQ(childOriginal(child, @selector(number)), 1);
}

TEST_F(HookMessage, OriginalOfAnInheritedMethodFollowsTheSuperclass) {
    hook([Child class], "number", childNumber, &childOriginal);
    hook([Parent class], "number", parentNumber, &parentOriginal);
    EXPECT_EQ([make([Child class]) number], 1101);
    EXPECT_EQ([make([Sibling class]) number], 1001);
}

TEST_F(HookMessage, HooksStack) {
    hook([Child class], "number", childNumber, &childOriginal);
    hook([Child class], "number", secondNumber, &secondOriginal);
    EXPECT_EQ([make([Child class]) number], 202);
}

TEST_F(HookMessage, EachHookHasItsOwnForwarder) {
    hook([Child class], "number", childNumber, &childOriginal);
    hook([Sibling class], "number", secondNumber, &secondOriginal);
    EXPECT_NE(childOriginal, secondOriginal);
    EXPECT_EQ([make([Child class]) number], 101);
    EXPECT_EQ([make([Sibling class]) number], 2);
}

TEST_F(HookMessage, ForwardsStructuresAndEveryArgument) {
    hook([Child class], "box:with:", childBox, &boxOriginal);
    const Box box = [(Parent*)make([Child class]) box:2 with:3];
    EXPECT_EQ(box.a, -2);
    EXPECT_EQ(box.b, 5);
    EXPECT_EQ(box.d, 11);
    hook([Child class], "mix:b:c:d:e:f:x:y:", childMix, &mixOriginal);
    EXPECT_EQ([make([Child class]) mix:1 b:2 c:3 d:4 e:5 f:6 x:0.5 y:0.25f], -21.75);
}

TEST_F(HookMessage, KeepsTheMethodsTypes) {
    hook([Child class], "box:with:", childBox, &boxOriginal);
    Method overridden = class_getInstanceMethod([Child class], @selector(box:with:));
    Method inherited = class_getInstanceMethod([Parent class], @selector(box:with:));
    EXPECT_NE(overridden, inherited);
    EXPECT_STREQ(method_getTypeEncoding(overridden), method_getTypeEncoding(inherited));
}

using HookMessageDeathTest = HookMessage;

TEST_F(HookMessageDeathTest, ClassMethodsAreRefused) {
    EXPECT_DEATH(hook(object_getClass([Child class]), "description", ownNumber, &ownOriginal),
                 "class methods cannot be hooked");
}

TEST_F(HookMessage, NilClassDoesNothing) {
    const IMP before = reinterpret_cast<IMP>(&childNumber);
    IMP original = before;
    testing::internal::CaptureStderr();
    MSHookMessageEx(Nil, @selector(number), before, &original);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(original, before);
}

TEST_F(HookMessage, MissingMessageIsToldAndLeftAlone) {
    const IMP before = reinterpret_cast<IMP>(&childNumber);
    IMP original = before;
    testing::internal::CaptureStderr();
    MSHookMessageEx([Child class], sel_registerName("nobodyHasThis"), before, &original);
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find("-[Child nobodyHasThis]"), std::string::npos) << told;
    EXPECT_EQ(original, before);
    EXPECT_FALSE([Child instancesRespondToSelector:sel_registerName("nobodyHasThis")]);
}

TEST_F(HookMessage, ClassThatWasNeverMessagedIsHookedAloneAndNotWoken) {
    hook(objc_getClass("Sleeper"), "number", secondNumber, &secondOriginal);
    EXPECT_FALSE(sleeperWoke);
    EXPECT_EQ([make(objc_getClass("OtherSleeper")) number], 9);
    EXPECT_EQ([make(objc_getClass("Sleeper")) number], 16);
    EXPECT_TRUE(sleeperWoke);
}

TEST_F(HookMessage, OriginalMayBeUnwanted) {
    MSHookMessageEx([Child class], @selector(own), reinterpret_cast<IMP>(+[](id, SEL) { return 77; }), nullptr);
    EXPECT_EQ([make([Child class]) own], 77);
}

}  // namespace

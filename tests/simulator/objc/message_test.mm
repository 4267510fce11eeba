#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include "simulator/frameworks/objc/runtime.h"

namespace {

struct Large {
    double a, b, c, d;
};
struct Small {
    double x, y;
};

}  // namespace

@interface Receiver : NSObject {
    double sum_;
}
- (double)sum;
@end

@implementation Receiver
- (double)sum {
    return sum_;
}
- (double)takeInts:(int)a
                 b:(long)b
                 c:(unsigned char)c
                 d:(int)d
                 e:(int)e
                 f:(int)f
                 x:(double)x
                 y:(double)y
                 z:(float)z
                x2:(double)x2
                y2:(double)y2
                z2:(double)z2
                x3:(double)x3
                y3:(double)y3
              last:(double)last {
    return a + 10.0 * b + 100.0 * c + 1000.0 * d + 10000.0 * e + 100000.0 * f + x / 2 + y / 4 + z / 8 + x2 / 16 +
           y2 / 32 + z2 / 64 + x3 / 128 + y3 / 256 + last / 512;
}
- (Large)large:(double)start step:(double)step {
    return {start, start + step, start + 2 * step, start + 3 * step};
}
- (Small)small:(double)x {
    return {x, x * 2};
}
- (double)sumOf:(int)count, ... {
    va_list arguments;
    va_start(arguments, count);
    double total = 0;
    for (int i = 0; i < count; ++i) total += va_arg(arguments, double);
    va_end(arguments);
    return total;
}
- (void)raise {
    [NSException raise:@"TestException" format:@"raised through the trampoline"];
}
@end

namespace {

template <typename Type>
Type* sender() {
    return reinterpret_cast<Type*>(objc_msgSend);
}

class Message : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        receiver_ = [[[Receiver alloc] init] autorelease];
    }
    void TearDown() override { [pool_ drain]; }

    NSAutoreleasePool* pool_ = nil;
    Receiver* receiver_ = nil;
};

constexpr const char* manyArguments = "takeInts:b:c:d:e:f:x:y:z:x2:y2:z2:x3:y3:last:";

TEST_F(Message, KeepsEveryArgumentRegisterAndTheStack) {
    auto send = sender<double(id, SEL, int, long, unsigned char, int, int, int, double, double, float, double, double,
                              double, double, double, double)>();
    const double result =
        send(receiver_, sel_registerName(manyArguments), 1, 2, 3, 4, 5, 6, 2, 4, 8, 16, 32, 64, 128, 256, 512);
    EXPECT_EQ(result, 654321.0 + 9);
}

TEST_F(Message, PassesVariadicArguments) {
    auto send = sender<double(id, SEL, int, ...)>();
    EXPECT_EQ(send(receiver_, sel_registerName("sumOf:"), 3, 1.5, 2.5, 4.0), 8.0);
}

TEST_F(Message, ReturnsSmallStructuresInRegisters) {
    const Small result = sender<Small(id, SEL, double)>()(receiver_, sel_registerName("small:"), 3);
    EXPECT_EQ(result.x, 3);
    EXPECT_EQ(result.y, 6);
}

TEST_F(Message, ReturnsLargeStructuresInMemory) {
    auto send = reinterpret_cast<Large (*)(id, SEL, double, double)>(objc_msgSend_stret);
    const Large result = send(receiver_, sel_registerName("large:step:"), 1, 0.5);
    EXPECT_EQ(result.a, 1);
    EXPECT_EQ(result.d, 2.5);
}

TEST_F(Message, ToNilAnswersZeroInEveryRegister) {
    const SEL anything = sel_registerName("small:");
    EXPECT_EQ(sender<id(id, SEL)>()(nil, anything), nil);
    EXPECT_EQ(sender<double(id, SEL, double)>()(nil, anything, 7), 0.0);
    const Small result = sender<Small(id, SEL, double)>()(nil, anything, 7);
    EXPECT_EQ(result.x, 0);
    EXPECT_EQ(result.y, 0);
}

TEST_F(Message, ToNilLeavesAStructureInMemoryAlone) {
    Large result{1, 2, 3, 4};
#if defined(__x86_64__) || defined(__arm__)
    auto send = reinterpret_cast<void* (*)(Large*, id, SEL)>(objc_msgSend_stret);
    EXPECT_EQ(send(&result, nil, sel_registerName("large:step:")), &result);
#endif
    EXPECT_EQ(result.c, 3);
}

TEST_F(Message, LetsExceptionsPass) {
    bool caught = false;
    @try {
        sender<void(id, SEL)>()(receiver_, sel_registerName("raise"));
    } @catch (NSException* exception) {
        caught = [[exception name] isEqualToString:@"TestException"];
    }
    EXPECT_TRUE(caught);
}

TEST_F(Message, UnknownSelectorNamesClassAndSelector) {
    NSString* reason = nil;
    @try {
        sender<void(id, SEL)>()(receiver_, sel_registerName("doWhatNobodyCan"));
    } @catch (NSException* exception) {
        reason = [exception reason];
    }
    EXPECT_NE([reason rangeOfString:@"Receiver"].location, static_cast<NSUInteger>(NSNotFound));
    EXPECT_NE([reason rangeOfString:@"doWhatNobodyCan"].location, static_cast<NSUInteger>(NSNotFound));
}

TEST_F(Message, ReachesClassMethods) {
    id cls = reinterpret_cast<id>(objc_getClass("NSObject"));
    EXPECT_EQ(sender<id(id, SEL)>()(cls, sel_registerName("class")), cls);
}

extern "C" Class objectGetClassFunction(id object) __asm__("object_getClass");

TEST_F(Message, RuntimeFunctionsExistAsFunctions) {
    EXPECT_EQ(objectGetClassFunction(receiver_), [Receiver class]);
    EXPECT_EQ(objectGetClassFunction(nil), Nil);
}

TEST_F(Message, PlainOwnershipFunctions) {
    id object = [[Receiver alloc] init];
    EXPECT_EQ(objc_retain(object), object);
    EXPECT_EQ([object retainCount], 2u);
    objc_release(object);
    void* pool = objc_autoreleasePoolPush();
    [object retain];
    EXPECT_EQ(objc_autorelease(object), object);
    objc_autoreleasePoolPop(pool);
    EXPECT_EQ([object retainCount], 1u);
    objc_release(object);
}

}  // namespace

// What is different on 32-bit phones, checked by their compiler: this file makes no code.
#include "src/platform/send.h"

static_assert(sizeof(void*) == 4);
static_assert(std::is_same_v<CGFloat, float>);
static_assert(std::is_same_v<BOOL, signed char>);
static_assert(sizeof(NSInteger) == 4 && sizeof(CGRect) == 16);

// Every struct wider than a register is returned through memory, for which messages have an entry of their own.
static_assert(platform::returnedThroughMemory<CGRect>());
static_assert(platform::returnedThroughMemory<CGSize>());
static_assert(platform::returnedThroughMemory<NSRange>());
static_assert(!platform::returnedThroughMemory<NSObject>());
static_assert(!platform::returnedThroughMemory<double>());

static_assert(platform::methodEncoding<bool, bool>.view() == "c@:c");
static_assert(platform::methodEncoding<CGRect, CGFloat>.view() == "{CGRect={CGPoint=ff}{CGSize=ff}}@:f");
static_assert(platform::methodEncoding<NSInteger, NSUInteger>.view() == "i@:I");
static_assert(platform::methodEncoding<NSRange>.view() == "{_NSRange=II}@:");

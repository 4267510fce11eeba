// What is different on 32-bit phones, checked by their compiler: this file makes no code.
#include "src/platform/foundation/NSObject.h"

static_assert(sizeof(void*) == 4);
static_assert(std::is_same_v<CGFloat, float>);
static_assert(std::is_same_v<BOOL, signed char>);
static_assert(sizeof(NSInteger) == 4 && sizeof(CGRect) == 16);

// Every struct wider than a register is returned through memory, for which messages have an entry of their own.
static_assert(zelka::detail::returnedThroughMemory<CGRect>());
static_assert(zelka::detail::returnedThroughMemory<CGSize>());
static_assert(zelka::detail::returnedThroughMemory<NSRange>());
static_assert(!zelka::detail::returnedThroughMemory<NSObject>());
static_assert(!zelka::detail::returnedThroughMemory<double>());

static_assert(zelka::detail::methodEncoding<bool, bool>.view() == "c@:c");
static_assert(zelka::detail::methodEncoding<CGRect, CGFloat>.view() == "{CGRect={CGPoint=ff}{CGSize=ff}}@:f");
static_assert(zelka::detail::methodEncoding<NSInteger, NSUInteger>.view() == "i@:I");
static_assert(zelka::detail::methodEncoding<NSRange>.view() == "{_NSRange=II}@:");

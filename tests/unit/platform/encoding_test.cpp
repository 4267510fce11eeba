#include "src/platform/encoding.h"

#include <gtest/gtest.h>

#include "src/platform/foundation/NSObject.h"
#include "tests/unit/platform/witness.h"

namespace zelka {
namespace {

using detail::encodingsAgree;
using detail::methodEncoding;
using detail::typeEncoding;

template <class... Types>
bool agreesWithCompiler(const char* selector) {
    return encodingsAgree(methodEncoding<Types...>.c_str(), witnessEncoding(selector));
}

TEST(Encoding, OfTypesIsTheCompilers) {
    const char* const* types = witnessTypes();
    EXPECT_STREQ(typeEncoding<detail::Abi<bool>>.c_str(), types[0]);
    EXPECT_STREQ(typeEncoding<CGPoint>.c_str(), types[1]);
    EXPECT_STREQ(typeEncoding<CGSize>.c_str(), types[2]);
    EXPECT_STREQ(typeEncoding<CGRect>.c_str(), types[3]);
    EXPECT_STREQ(typeEncoding<NSRange>.c_str(), types[4]);
    EXPECT_STREQ(typeEncoding<CGFloat>.c_str(), types[5]);
    EXPECT_STREQ(typeEncoding<NSInteger>.c_str(), types[6]);
}

TEST(Encoding, OfMethodsAgreesWithTheCompilers) {
    EXPECT_TRUE((agreesWithCompiler<bool>("isTrue")));
    EXPECT_TRUE((agreesWithCompiler<signed char>("byte")));
    EXPECT_TRUE((agreesWithCompiler<std::uint16_t>("halfWord")));
    EXPECT_TRUE((agreesWithCompiler<std::int32_t>("word")));
    EXPECT_TRUE((agreesWithCompiler<std::int64_t>("longWord")));
    EXPECT_TRUE((agreesWithCompiler<float>("single")));
    EXPECT_TRUE((agreesWithCompiler<double>("precise")));
    EXPECT_TRUE((agreesWithCompiler<NSObject>("myself")));
    EXPECT_TRUE((agreesWithCompiler<Class>("myClass")));
    EXPECT_TRUE((agreesWithCompiler<SEL>("mySelector")));
    EXPECT_TRUE((agreesWithCompiler<const char*>("text")));
    EXPECT_TRUE((agreesWithCompiler<CGPoint>("point")));
    EXPECT_TRUE((agreesWithCompiler<CGSize>("size")));
    EXPECT_TRUE((agreesWithCompiler<CGRect>("rect")));
    EXPECT_TRUE((agreesWithCompiler<NSRange>("range")));
    EXPECT_TRUE((agreesWithCompiler<void>("nothing")));
    EXPECT_TRUE((agreesWithCompiler<CGRect, CGRect, CGFloat, bool>("rect:movedBy:truly:")));
    EXPECT_TRUE(
        (agreesWithCompiler<double, signed char, short, int, long long, float, double, unsigned char, unsigned, CGPoint,
                            NSInteger>("sumOfByte:half:word:wide:single:precise:octet:positive:point:integer:")));
}

TEST(Encoding, OfAnotherMethodDoesNotAgree) {
    EXPECT_FALSE((agreesWithCompiler<void>("word")));
    EXPECT_FALSE((agreesWithCompiler<CGSize>("rect")));
    EXPECT_FALSE((agreesWithCompiler<CGRect>("size")));
    EXPECT_FALSE((agreesWithCompiler<float>("precise")));
    EXPECT_FALSE((agreesWithCompiler<CGRect, CGRect, CGFloat>("rect:movedBy:truly:")));
    EXPECT_FALSE((agreesWithCompiler<CGRect, CGRect, CGFloat, bool, bool>("rect:movedBy:truly:")));
}

TEST(EncodingsAgree, WhateverTheRuntimesWriteDifferently) {
    EXPECT_TRUE(encodingsAgree("@24@0:8@16", "@@:@"));
    EXPECT_TRUE(encodingsAgree("B@:", "C@:"));
    EXPECT_TRUE(encodingsAgree("B@:", "c@:"));
    EXPECT_TRUE(encodingsAgree("r*@:", "^v@:"));
    EXPECT_TRUE(encodingsAgree("^{CGImage=}@:", "^v@:"));
    EXPECT_TRUE(encodingsAgree("^^{Deep={Inner=i}[4c]}@:", "^v@:"));
    EXPECT_TRUE(encodingsAgree("@\"NSString\"@:@?", "@@:@"));
    EXPECT_TRUE(encodingsAgree("{_NSRect={_NSPoint=dd}{_NSSize=dd}}@:", "{CGRect={CGPoint=dd}{CGSize=dd}}@:"));
    EXPECT_TRUE(encodingsAgree("Vv@:", "v@:"));
}

TEST(EncodingsAgree, OnlyWhenEverythingIsPassedAlike) {
    EXPECT_FALSE(encodingsAgree("i@:", "q@:"));
    EXPECT_FALSE(encodingsAgree("f@:", "d@:"));
    EXPECT_FALSE(encodingsAgree("i@:", "f@:"));
    EXPECT_FALSE(encodingsAgree("@@:", "v@:"));
    EXPECT_FALSE(encodingsAgree("v@:@", "v@:"));
    EXPECT_FALSE(encodingsAgree("v@:", "v@:@"));
    EXPECT_FALSE(encodingsAgree("{CGSize=dd}@:", "{CGSize=ff}@:"));
    EXPECT_FALSE(encodingsAgree("{A=dd}d@:", "{A=ddd}@:"));
    EXPECT_FALSE(encodingsAgree("C@:", "i@:"));
}

}  // namespace
}  // namespace zelka

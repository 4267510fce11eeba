#include <dlfcn.h>
#include <string.h>

#include "tests/support/extension.h"

// A class that the runtime says is not there.
static const char* missing = nullptr;

// Ahead of the runtime's own by definition order.
extern "C" __attribute__((visibility("default"))) Class objc_getClass(const char* name) {
    static const auto before = reinterpret_cast<decltype(&objc_getClass)>(dlsym(RTLD_NEXT, "objc_getClass"));
    return missing != nullptr && strcmp(name, missing) == 0 ? Nil : before(name);
}

namespace {

class PhoneNumbers : public test::ExtensionTest {
  protected:
    PhoneNumbers() { boot(); }

    std::string plain(NSString* number) const { return [[Utils getPlainPhoneNumber:number] UTF8String]; }
    std::string cut(NSString* link) const { return [[Utils getPhoneNumberFromURL:link] UTF8String]; }
};

TEST_F(PhoneNumbers, AreFormattedByThePlatform) {
    NSString* formatted = [Utils getFormattedPhoneNumber:@"+15550100199"];
    EXPECT_TRUE(
        [formatted isEqualToString:[[ABPhoneFormatting abCopyPhoneNumberFromString:@"+15550100199"] autorelease]]);
    EXPECT_GT([formatted length], 12u);
    EXPECT_EQ([Utils getFormattedPhoneNumber:nil], nil);
}

TEST_F(PhoneNumbers, WithoutThePlatformsFormatterThereIsNoFormattedForm) {
    missing = "ABPhoneFormatting";
    EXPECT_EQ([Utils getFormattedPhoneNumber:@"+15550100199"], nil);
}

TEST_F(PhoneNumbers, PlainFormDropsSpacesParenthesesAndHyphens) {
    EXPECT_EQ(plain(@"+1 (555) 010-0199"), "+15550100199");
    EXPECT_EQ(plain(@"(0) 12-34"), "01234");
    EXPECT_EQ(plain(@"( ) -"), "");
}

TEST_F(PhoneNumbers, PlainFormKeepsEverythingElse) {
    EXPECT_EQ(plain(@"555.010.0199"), "555.010.0199");
    EXPECT_EQ(plain(@"+49/30\t1\u00a02;x٣"), "+49/30\t1\u00a02;x٣");
    EXPECT_EQ(plain(@"1–2"), "1–2");
}

TEST_F(PhoneNumbers, PlainFormOfAnEmptyTextIsANewEmptyText) {
    NSString* empty = [NSMutableString string];
    NSString* result = [Utils getPlainPhoneNumber:empty];
    EXPECT_EQ([result length], 0u);
    EXPECT_NE(result, empty);
    EXPECT_EQ([[Utils getPlainPhoneNumber:nil] length], 0u);
}

TEST_F(PhoneNumbers, PlainFormIsANewTextEvenWhenNothingIsDropped) {
    NSString* number = [NSMutableString stringWithString:@"5550100"];
    EXPECT_NE([Utils getPlainPhoneNumber:number], number);
}

TEST_F(PhoneNumbers, PlainFormWorksOnCodeUnitsSoThatLoneSurrogatesStay) {
    const unichar text[] = {0xD83D, '-', 0xDE00, ' ', 0xD800};
    NSString* result = [Utils getPlainPhoneNumber:[NSString stringWithCharacters:text length:5]];
    ASSERT_EQ([result length], 3u);
    EXPECT_EQ([result characterAtIndex:0], 0xD83D);
    EXPECT_EQ([result characterAtIndex:1], 0xDE00);
    EXPECT_EQ([result characterAtIndex:2], 0xD800);
}

TEST_F(PhoneNumbers, PlainFormOfALongText) {
    NSString* text = [@"" stringByPaddingToLength:100000 withString:@"12 (3)-" startingAtIndex:0];
    EXPECT_EQ([[Utils getPlainPhoneNumber:text] length], 42858u);
}

// A combining mark makes one visible character with the slash or question mark before it.
TEST_F(PhoneNumbers, AreCutOutOfACallLinkCodeUnitByCodeUnit) {
    EXPECT_EQ(cut(@"tel://\u0338555?call"), "\u0338555");
    EXPECT_EQ(cut(@"tel://555?\u0338call"), "555");
}

TEST_F(PhoneNumbers, AreCutOutOfACallLink) {
    EXPECT_EQ(cut(@"tel://5550100?call=1"), "5550100");
    EXPECT_EQ(cut(@"tel://5550100?a?b"), "5550100");
}

TEST_F(PhoneNumbers, ALinkWithNothingBetweenSchemeAndQueryGivesAnEmptyText) { EXPECT_EQ(cut(@"tel://?x"), ""); }

TEST_F(PhoneNumbers, ALinkWithoutQueryComesBackWhole) { EXPECT_EQ(cut(@"tel://5550100"), "tel://5550100"); }

TEST_F(PhoneNumbers, ATextWithoutSchemeComesBackItself) {
    NSString* text = @"5550100?x";
    EXPECT_EQ([Utils getPhoneNumberFromURL:text], text);
    EXPECT_EQ(cut(@"tel:5550100?x"), "tel:5550100?x");
    EXPECT_EQ([Utils getPhoneNumberFromURL:nil], nil);
}

TEST_F(PhoneNumbers, TheCutBeginsAtTheSchemesLengthWhereverTheSchemeStands) {
    EXPECT_EQ(cut(@"see tel://5550100?x"), "l://5550100");
}

TEST_F(PhoneNumbers, AQuestionMarkBeforeTheNumberRaisesARangeError) {
    NSString* raised = nil;
    @try {
        [Utils getPhoneNumberFromURL:@"a?tel://5550100"];
    } @catch (NSException* exception) {
        raised = [exception name];
    }
    EXPECT_TRUE([raised isEqualToString:NSRangeException]);
}

}  // namespace

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

NSString* units(std::vector<unichar> list) { return [NSString stringWithCharacters:list.data() length:list.size()]; }

NSString* text(const char* utf8) { return [NSString stringWithUTF8String:utf8]; }

std::string joined(NSArray* pieces) { return [[pieces componentsJoinedByString:@"|"] UTF8String]; }

class Strings : public testing::Test {
  protected:
    void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
    void TearDown() override { [pool_ drain]; }
    NSAutoreleasePool* pool_ = nil;
};

TEST_F(Strings, AlphanumericsAreLettersMarksAndNumbersOfEveryPlane) {
    NSCharacterSet* set = [NSCharacterSet alphanumericCharacterSet];
    for (UTF32Char member : {0x41u, 0x7Au, 0x30u, 0xE9u, 0x301u, 0x660u, 0x2167u, 0xBDu, 0x4E00u, 0x870u, 0x10428u,
                             0x1D7CFu, 0x20000u, 0xE0100u}) {
        EXPECT_TRUE([set longCharacterIsMember:member]) << std::hex << member;
    }
    for (UTF32Char other :
         {0x20u, 0x2Du, 0x22u, 0xA0u, 0x2019u, 0x20ACu, 0x1F600u, 0x2F040u, 0xD800u, 0xE000u, 0xFFFFu, 0x10FFFFu}) {
        EXPECT_FALSE([set longCharacterIsMember:other]) << std::hex << other;
    }
    EXPECT_TRUE([[set invertedSet] longCharacterIsMember:0x1F600]);
    EXPECT_FALSE([[set invertedSet] longCharacterIsMember:0x10428]);
    NSMutableCharacterSet* more = (NSMutableCharacterSet*)[NSMutableCharacterSet alphanumericCharacterSet];
    [more addCharactersInString:@"-"];
    EXPECT_TRUE([more characterIsMember:'-']);
    EXPECT_FALSE([[NSCharacterSet alphanumericCharacterSet] characterIsMember:'-']);
}

TEST_F(Strings, SplitAtCharactersAndNeverWithinOne) {
    NSCharacterSet* separators = [[NSCharacterSet alphanumericCharacterSet] invertedSet];
    EXPECT_EQ(joined([@"jean-luc picard" componentsSeparatedByCharactersInSet:separators]), "jean|luc|picard");
    EXPECT_EQ(joined([@"(Anna)" componentsSeparatedByCharactersInSet:separators]), "|Anna|");
    EXPECT_EQ(joined([@"!!" componentsSeparatedByCharactersInSet:separators]), "||");
    EXPECT_EQ(joined([@"" componentsSeparatedByCharactersInSet:separators]), "");
    EXPECT_EQ(joined([text("𐐨b-𝟏") componentsSeparatedByCharactersInSet:separators]), "𐐨b|𝟏");
    EXPECT_EQ(joined([text("a😀b") componentsSeparatedByCharactersInSet:separators]), "a|b");
    EXPECT_EQ(joined([units({'a', 0xD800, 'b'}) componentsSeparatedByCharactersInSet:separators]), "a|b");
    EXPECT_EQ(joined([@"a  b" componentsSeparatedByString:@" "]), "a||b");
}

TEST_F(Strings, CaseMappingIsUnicodes) {
    EXPECT_STREQ([[@"straße" uppercaseString] UTF8String], "STRASSE");
    EXPECT_STREQ([[@"ŉ ǰ ﬁ ÿ éà дя αά" uppercaseString] UTF8String], "ʼN J̌ FI Ÿ ÉÀ ДЯ ΑΆ");
    EXPECT_STREQ([[text("𐐨") uppercaseString] UTF8String], "𐐀");
    EXPECT_STREQ([[@"ÀÉΣ" lowercaseString] UTF8String], "àéς");
    EXPECT_STREQ([[@"js" uppercaseString] UTF8String], "JS");
    EXPECT_STREQ([[[NSMutableString stringWithString:@"ß"] uppercaseString] UTF8String], "SS");
    EXPECT_STREQ([[@"" uppercaseString] UTF8String], "");
    EXPECT_EQ([[units({0xD83D}) uppercaseString] characterAtIndex:0], 0xD83D);
}

TEST_F(Strings, AnEmptyTextIsFoundNowhere) {
    for (NSString* whole in @[ @"abc", [NSMutableString stringWithString:@"abc"], text("äbc"), @"" ]) {
        EXPECT_EQ([whole rangeOfString:@""].location, static_cast<NSUInteger>(NSNotFound));
        EXPECT_EQ([whole rangeOfString:@"" options:NSCaseInsensitiveSearch].length, 0u);
    }
    EXPECT_EQ([@"tel://55?x" rangeOfString:@"?"].location, 8u);
    EXPECT_EQ([@"HELLO" rangeOfString:@"llo" options:NSCaseInsensitiveSearch].location, 2u);
    EXPECT_EQ([@"abcb" rangeOfString:@"b" options:NSBackwardsSearch].location, 3u);
    EXPECT_STREQ([[@"a--b--" stringByReplacingOccurrencesOfString:@"--" withString:@"+"] UTF8String], "a+b+");
}

template <typename Work>
std::string raisedBy(Work work) {
    @try {
        work();
    } @catch (NSException* exception) {
        return [[exception name] UTF8String];
    }
    return "";
}

TEST_F(Strings, PartsOutsideRaiseRangeErrors) {
    EXPECT_EQ(raisedBy([] { [@"abc" substringToIndex:4]; }), "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"abc" substringFromIndex:4]; }), "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"abc" substringWithRange:NSMakeRange(2, 2)]; }), "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"abc" substringWithRange:NSMakeRange(6, static_cast<NSUInteger>(-3))]; }),
              "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"" substringToIndex:1]; }), "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"abc" rangeOfString:nil]; }), "NSInvalidArgumentException");
    EXPECT_EQ(raisedBy([] { [[NSArray array] objectAtIndex:0]; }), "NSRangeException");
    EXPECT_EQ(raisedBy([] { [@"abc" substringToIndex:3]; }), "");
}

TEST_F(Strings, HalfASurrogatePairIsAString) {
    NSString* half = [text("😀x") substringToIndex:1];
    ASSERT_EQ([half length], 1u);
    EXPECT_EQ([half characterAtIndex:0], 0xD83D);
    EXPECT_TRUE([half isEqualToString:units({0xD83D})]);
    EXPECT_EQ([units({0xD83D}) hash], [half hash]);
    NSString* both = [NSString stringWithFormat:@"%@%@", half, @"S"];
    EXPECT_EQ([both length], 2u);
    EXPECT_EQ([[half stringByAppendingString:@"x"] length], 2u);
    EXPECT_EQ([[half stringByReplacingOccurrencesOfString:@"a" withString:@"b"] length], 1u);
    const unichar low[] = {'a', 0xDC00};
    EXPECT_EQ([[NSMutableString stringWithCharacters:low length:2] length], 2u);
    EXPECT_EQ([[[half mutableCopy] autorelease] length], 1u);
    unichar* buffer = static_cast<unichar*>(malloc(2 * sizeof(unichar)));
    buffer[0] = 0xDC00;
    buffer[1] = 'z';
    EXPECT_EQ([[[[NSString alloc] initWithCharactersNoCopy:buffer length:2 freeWhenDone:YES] autorelease] length], 2u);
    EXPECT_EQ([[[NSDictionary dictionaryWithObject:@1 forKey:half] objectForKey:units({0xD83D})] intValue], 1);
}

TEST_F(Strings, HalfASurrogatePairHasNoUtf8) {
    EXPECT_EQ([units({'a', 0xD83D}) UTF8String], nullptr);
    EXPECT_EQ([[text("😀") substringToIndex:1] UTF8String], nullptr);
    EXPECT_EQ([[NSMutableString stringWithString:units({0xDC00})] UTF8String], nullptr);
    EXPECT_STREQ([units({0xD83D, 0xDE00}) UTF8String], "😀");
    EXPECT_STREQ([units({'a', 'b'}) UTF8String], "ab");
}

TEST_F(Strings, HexScansReadTheLeadingDigits) {
    const struct {
        NSString* text;
        bool found;
        unsigned value;
    } cases[] = {{@"0xFF", true, 0xFF}, {@"0xff", true, 0xFF}, {@"0x0g", true, 0}, {@"0x4G", true, 4},
                 {@"0xzz", false, 0},   {@"ff", true, 0xFF},   {@"", false, 0}};
    for (const auto& each : cases) {
        unsigned value = 0;
        EXPECT_EQ([[NSScanner scannerWithString:each.text] scanHexInt:&value] != NO, each.found)
            << [each.text UTF8String];
        EXPECT_EQ(value, each.value) << [each.text UTF8String];
    }
}

TEST_F(Strings, NumbersInTexts) {
    EXPECT_EQ([@"7.1.2" floatValue], 7.1f);
    EXPECT_EQ([@" 9.3" floatValue], 9.3f);
    EXPECT_EQ([@"abc" floatValue], 0.0f);
    EXPECT_EQ([@"-12x" integerValue], -12);
    EXPECT_EQ([@"YES" boolValue] != NO, true);
    EXPECT_EQ([@"no" boolValue] != NO, false);
    EXPECT_EQ([@"iphone" caseInsensitiveCompare:@"iPhone"], NSOrderedSame);
    EXPECT_EQ([@"É" caseInsensitiveCompare:@"é"], NSOrderedSame);
    EXPECT_EQ([@"a" caseInsensitiveCompare:@"B"], NSOrderedAscending);
}

TEST_F(Strings, EqualNumbersAreEqualKeysWhateverTheirWidth) {
    NSArray* fives = @[
        [NSNumber numberWithInt:5], [NSNumber numberWithLongLong:5], [NSNumber numberWithUnsignedChar:5],
        [NSNumber numberWithInteger:5], [NSNumber numberWithDouble:5]
    ];
    for (NSNumber* a in fives) {
        NSDictionary* memo = [NSDictionary dictionaryWithObject:@"x" forKey:a];
        for (NSNumber* b in fives) EXPECT_EQ([memo objectForKey:b], @"x");
    }
    EXPECT_TRUE([[NSNumber numberWithInt:-1] isEqual:[NSNumber numberWithLongLong:-1]]);
    EXPECT_EQ([[NSNumber numberWithInt:-1] hash], [[NSNumber numberWithLongLong:-1] hash]);
    EXPECT_EQ([[NSArray array] firstObject], nil);
    EXPECT_EQ([@[ @"x" ] firstObject], @"x");
}

}  // namespace

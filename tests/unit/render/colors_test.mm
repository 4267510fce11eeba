#include <set>

#include "tests/support/extension.h"
#include "tests/unit/render/random_draws.h"

namespace {

const char* const kFull[] = {"#4b9484", "#9cd2d0", "#9f9cd2", "#12a9d5", "#42d7b6", "#80c99d", "#84f4eb", "#576c93",
                             "#898c66", "#4785f2", "#839096", "#a2c257", "#a5682a", "#B294D1", "#c9b580", "#cd6b80",
                             "#cfd8f0", "#cff0e2", "#d2cf9c", "#d7d242", "#D8BFD8", "#d8f0cf", "#dacff0", "#e3b333",
                             "#EE9572", "#f0cfcf", "#f0cfe7", "#f0eacf", "#f9cccc", "#f484c6"};
const char* const kDark[] = {"#4b9484", "#12a9d5", "#576c93", "#898c66", "#4785f2", "#839096", "#a2c257",
                             "#a5682a", "#cd6b80", "#d7d242", "#e3b333", "#EE9572", "#f484c6"};

// "#rrggbb" in small letters, and the alpha when it is not 1.
std::string spelt(UIColor* color) {
    CGFloat red = -1, green = -1, blue = -1, alpha = -1;
    [color getRed:&red green:&green blue:&blue alpha:&alpha];
    char text[64];
    snprintf(text, sizeof text, "#%02lx%02lx%02lx", lround(red * 255), lround(green * 255), lround(blue * 255));
    return alpha == 1 ? text : std::string(text) + "@" + std::to_string(alpha);
}

std::string lower(std::string text) {
    for (char& letter : text) letter = static_cast<char>(tolower(letter));
    return text;
}

class Colors : public test::ExtensionTest {
  protected:
    std::set<std::string> drawn(NSInteger seed, bool dark) {
        std::set<std::string> colors;
        for (int i = 0; i < 2000; ++i) colors.insert(spelt([Utils getMonogramRandomColor:seed darkColor:dark]));
        return colors;
    }
};

TEST_F(Colors, OfAPackedCodeIgnoreItsTopByte) {
    boot();
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:0x4b9484]), "#4b9484");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:static_cast<int>(0xFF4b9484)]), "#4b9484");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:0]), "#000000");
}

TEST_F(Colors, OfComponentsAreDividedBy255AndKeepTheirAlpha) {
    boot();
    CGFloat red, green, blue, alpha;
    [[UIColor ZelkaCBColorWithRed:51 green:102 blue:255 alpha:0.25] getRed:&red green:&green blue:&blue alpha:&alpha];
    EXPECT_DOUBLE_EQ(red, 51 / 255.0);
    EXPECT_DOUBLE_EQ(green, 102 / 255.0);
    EXPECT_DOUBLE_EQ(blue, 1);
    EXPECT_DOUBLE_EQ(alpha, 0.25);
}

// What the platform's colours are made of, in the order of the request.
std::string requested;
id noteComponents(id, SEL, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    char text[128];
    snprintf(text, sizeof text, "%g %g %g %g", red, green, blue, alpha);
    requested = text;
    return nil;
}

TEST_F(Colors, OfComponentsOutOfRangeAreLeftToThePlatform) {
    boot();
    method_setImplementation(class_getClassMethod([UIColor class], @selector(colorWithRed:green:blue:alpha:)),
                             reinterpret_cast<IMP>(noteComponents));
    [UIColor ZelkaCBColorWithRed:-255 green:510 blue:51 alpha:2];
    EXPECT_EQ(requested, "-1 2 0.2 2");
    [UIColor ZelkaCBColorWithRed:510 green:-51 blue:765 alpha:-1];
    EXPECT_EQ(requested, "2 -0.2 3 -1");
    [UIColor ZelkaCBColorWithHexaCode:@"#00ff33" alpha:1.5];
    EXPECT_EQ(requested, "0 1 0.2 1.5");
}

TEST_F(Colors, OfATextIgnoreItsFirstCharacterAndLetterCase) {
    boot();
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"#4b9484" alpha:1]), "#4b9484");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"?4B9484" alpha:1]), "#4b9484");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"#4b9484ff and more" alpha:1]), "#4b9484");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"#4b9484" alpha:0.5]), "#4b9484@0.500000");
}

TEST_F(Colors, OfATextWithoutHexadecimalDigitsAreBlack) {
    boot();
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"#zzzzzz" alpha:1]), "#000000");
    EXPECT_EQ(spelt([UIColor ZelkaCBColorWithHexaCode:@"#4zz4ff" alpha:1]), "#0400ff");
}

TEST_F(Colors, OfATextThatIsTooShortRaiseThePlatformsRangeError) {
    boot();
    NSString* raised = nil;
    @try {
        [UIColor ZelkaCBColorWithHexaCode:@"#4b948" alpha:1];
    } @catch (NSException* exception) {
        raised = [exception name];
    }
    EXPECT_TRUE([raised isEqualToString:NSRangeException]);
}

TEST_F(Colors, OfThePaletteAreIndexedBySeedAndDraw) {
    boot();
    for (unsigned draw = 0; draw < 29; ++draw) {
        test::scriptRandomDraws({draw + 30});
        EXPECT_EQ(spelt([Utils getMonogramRandomColor:31 darkColor:NO]), lower(kFull[draw + 1]));
    }
    for (unsigned draw = 0; draw < 12; ++draw) {
        test::scriptRandomDraws({draw + 26});
        EXPECT_EQ(spelt([Utils getMonogramRandomColor:14 darkColor:YES]), lower(kDark[draw + 1]));
    }
    test::scriptRandomDraws({60});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:30 darkColor:NO]), lower(kFull[0]));
}

TEST_F(Colors, ThatOverflowThePaletteAreDrawnAgainAtEvenPlaces) {
    boot();
    test::scriptRandomDraws({29, 20, 46, 33});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:29 darkColor:NO]), lower(kFull[6]));
    EXPECT_EQ(test::scriptedDrawsLeft(), 0);
    test::scriptRandomDraws({12, 7, 19});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:1 darkColor:YES]), lower(kDark[12]));
    EXPECT_EQ(test::scriptedDrawsLeft(), 0);
}

TEST_F(Colors, OfASeedBelowOneTakeASecondDrawForIt) {
    boot();
    for (NSInteger seed : {0L, -1L, -4711L}) {
        test::scriptRandomDraws({3, 34});
        EXPECT_EQ(spelt([Utils getMonogramRandomColor:seed darkColor:NO]), lower(kFull[7]));
        EXPECT_EQ(test::scriptedDrawsLeft(), 0);
    }
}

TEST_F(Colors, ComeFromTheirPaletteAndVary) {
    boot();
    std::set<std::string> full, dark;
    for (const char* color : kFull) full.insert(lower(color));
    for (const char* color : kDark) dark.insert(lower(color));
    EXPECT_EQ(drawn(0, false), full);
    EXPECT_EQ(drawn(0, true), dark);
    for (const std::string& color : drawn(5, true)) EXPECT_TRUE(dark.count(color)) << color;
    EXPECT_GT(drawn(5, false).size(), 1u);
}

TEST_F(Colors, AreDarkInFaceTime) {
    boot("com.apple.facetime");
    test::scriptRandomDraws({1});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:1]), lower(kDark[2]));
}

TEST_F(Colors, AreOfTheFullPaletteInOtherProcesses) {
    boot("com.apple.facetime2");
    test::scriptRandomDraws({1});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:1]), lower(kFull[2]));
}

TEST_F(Colors, AreOfTheFullPaletteInAProcessWithoutIdentifier) {
    boot("");
    test::scriptRandomDraws({1});
    EXPECT_EQ(spelt([Utils getMonogramRandomColor:1]), lower(kFull[2]));
}

}  // namespace

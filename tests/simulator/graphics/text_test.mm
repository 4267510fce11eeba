#include <chrono>

#import "tests/simulator/graphics/drawing.h"

namespace {

class Text : public DrawingTest {
  protected:
    UIFont* font = [UIFont systemFontOfSize:17];
    UIImage* inBox(NSString* text, CGRect box, NSTextAlignment alignment,
                   NSLineBreakMode mode = NSLineBreakByTruncatingTail) {
        return drawn({CGRectGetMaxX(box) + 40, CGRectGetMaxY(box) + 40}, 2,
                     [&](CGContextRef) { [text drawInRect:box withFont:font lineBreakMode:mode alignment:alignment]; });
    }
};

TEST_F(Text, IsCentredInItsBox) {
    for (NSString* text in @[ @"H", @"HH", @"OO", @"MM", @"X", @"ІІ" ]) {
        UIImage* image = inBox(text, CGRectMake(0, 9.5, 40, 21), NSTextAlignmentCenter);
        const CGRect box = ink(image);
        EXPECT_NEAR(CGRectGetMidX(box), 40, 1.5) << [text UTF8String];
        EXPECT_NEAR(CGRectGetMidY(box), 40, 3) << [text UTF8String];
        EXPECT_GT(box.size.height, 20) << [text UTF8String];
        EXPECT_LT(box.size.height, 30) << [text UTF8String];
    }
}

TEST_F(Text, IsAlignedToEitherSide) {
    const CGRect left = ink(inBox(@"HH", CGRectMake(20, 0, 100, 21), NSTextAlignmentLeft));
    EXPECT_NEAR(CGRectGetMinX(left), 40, 4);
    const CGRect right = ink(inBox(@"HH", CGRectMake(20, 0, 100, 21), NSTextAlignmentRight));
    EXPECT_NEAR(CGRectGetMaxX(right), 240, 4);
    EXPECT_NEAR(CGRectGetWidth(left), CGRectGetWidth(right), 1);
}

TEST_F(Text, KeepsTheAskedSideInEitherScript) {
    EXPECT_LT(CGRectGetMinX(ink(inBox(@"שלום", CGRectMake(20, 0, 100, 21), NSTextAlignmentLeft))), 48);
    EXPECT_GT(CGRectGetMaxX(ink(inBox(@"שלום", CGRectMake(20, 0, 100, 21), NSTextAlignmentRight))), 232);
    EXPECT_GT(CGRectGetMaxX(ink(inBox(@"שלום", CGRectMake(20, 0, 100, 21), NSTextAlignmentNatural))), 232);
    EXPECT_LT(CGRectGetMinX(ink(inBox(@"HH", CGRectMake(20, 0, 100, 21), NSTextAlignmentNatural))), 48);
}

TEST_F(Text, IsDrawnInTheFillColor) {
    UIImage* image = drawn({40, 40}, 1, [&](CGContextRef context) {
        CGContextSetFillColorWithColor(context, [[UIColor redColor] CGColor]);
        [@"██" drawInRect:CGRectMake(0, 0, 40, 40) withFont:font];
    });
    EXPECT_EQ(pixel(image, 10, 10), red);
}

TEST_F(Text, IsCutAtTheTailWithAnEllipsis) {
    const CGRect box = CGRectMake(0, 0, 40, 21);
    UIImage* cut = inBox(@"WWWWWWWWWW", box, NSTextAlignmentLeft);
    EXPECT_LE(CGRectGetMaxX(ink(cut)), 81);
    // What fits of the text, and the ellipsis after it; in one piece the two are set closer together.
    UIImage* fits = inBox(@"W…", box, NSTextAlignmentLeft);
    EXPECT_NEAR(ink(cut).size.width, ink(fits).size.width, 4);
    EXPECT_NEAR(coverage(cut), coverage(fits), 3);
}

TEST_F(Text, NeedsMoreThanTheBoxToBeCut) {
    const CGSize size = [@"Wilhelmina" sizeWithFont:font];
    UIImage* fits = inBox(@"Wilhelmina", {{0, 0}, size}, NSTextAlignmentLeft);
    UIImage* room = inBox(@"Wilhelmina", CGRectMake(0, 0, 300, 21), NSTextAlignmentLeft);
    EXPECT_NEAR(coverage(fits), coverage(room), 0.5);
}

TEST_F(Text, StaysOnOneLineInALowBox) {
    UIImage* image = inBox(@"one two three\nfour", CGRectMake(0, 0, 50, 21), NSTextAlignmentCenter);
    EXPECT_LT(CGRectGetMaxY(ink(image)), 44);
    UIImage* wrapped = inBox(@"one two three\nfour", CGRectMake(0, 0, 50, 84), NSTextAlignmentCenter);
    EXPECT_GT(CGRectGetMaxY(ink(wrapped)), 120);
}

TEST_F(Text, MarksALostLineWithAnEllipsis) {
    const CGRect box = CGRectMake(0, 0, 100, 21);
    EXPECT_NEAR(coverage(inBox(@"a\nb", box, NSTextAlignmentLeft)), coverage(inBox(@"a…", box, NSTextAlignmentLeft)),
                0.5);
}

TEST_F(Text, ClippedEndsAtTheBoxsEdge) {
    const CGRect box = ink(inBox(@"WWWWWWWWWW", CGRectMake(0, 0, 40, 21), NSTextAlignmentLeft, NSLineBreakByClipping));
    EXPECT_EQ(CGRectGetMaxX(box), 80);
}

TEST_F(Text, MeasuresWhatItDraws) {
    const CGSize one = [@"HH" sizeWithFont:font];
    EXPECT_GT(one.width, 20);
    EXPECT_LT(one.width, 30);
    EXPECT_NEAR(one.height, [font lineHeight], 0.5);
    CGSize drawnSize{};
    drawn({60, 60}, 2, [&](CGContextRef) { drawnSize = [@"HH" drawAtPoint:{3, 3} withFont:font]; });
    EXPECT_TRUE(CGSizeEqualToSize(one, drawnSize));
    EXPECT_LE([@"HHHHHHHHH" sizeWithFont:font forWidth:50 lineBreakMode:NSLineBreakByTruncatingTail].width, 50);
    const CGSize two = [@"HH HH" sizeWithFont:font constrainedToSize:{35, 1000}];
    EXPECT_NEAR(two.height, 2 * [font lineHeight], 0.5);
    EXPECT_LE(two.width, 35);
    EXPECT_EQ([@"" sizeWithFont:font].width, 0);
    EXPECT_EQ([@"HH" sizeWithFont:nil].width, 0);
}

TEST_F(Text, GrowsWithTheContextsScale) {
    const auto inkAt = [&](CGFloat scale) {
        return ink(drawn({60, 60}, scale, [&](CGContextRef) { [@"HH" drawAtPoint:{3, 3} withFont:font]; }));
    };
    EXPECT_NEAR(inkAt(3).size.width, inkAt(1).size.width * 3, 5);
    EXPECT_NEAR(inkAt(3).size.height, inkAt(1).size.height * 3, 5);
}

TEST_F(Text, OfEveryKindIsDrawn) {
    const unichar lone[] = {'A', 0xD83D, 'B', 0xDE00, 0, 0xD800};
    NSArray* texts = @[
        @"شمسي", @"日本", @"한글", @"हिन्दी", @"é̂̃̄", @"👩‍👩‍👧", @"🇩🇪", @"\u202eabc", @"\t",
        [NSString stringWithCharacters:lone length:6]
    ];
    for (NSString* text in texts) {
        const bool visible = ![text isEqual:@"\t"];
        UIImage* image = inBox(text, CGRectMake(0, 0, 200, 21), NSTextAlignmentCenter);
        EXPECT_EQ(!CGRectIsNull(ink(image)), visible) << [[text description] UTF8String];
    }
}

TEST_F(Text, EmojiKeepTheirColors) {
    UIImage* image = inBox(@"🟥", CGRectMake(0, 0, 40, 21), NSTextAlignmentCenter);
    const CGRect box = ink(image);
    const phone::Pixel p = pixel(image, size_t(CGRectGetMidX(box)), size_t(CGRectGetMidY(box)));
    EXPECT_GT(p.r, 150);
    EXPECT_LT(p.b, 100);
}

TEST_F(Text, OfTenThousandCharactersIsQuick) {
    NSMutableString* text = [NSMutableString string];
    while ([text length] < 10000) {
        [text appendString:@"Wörter שלום 🙂 "];
    }
    inBox(@"warm", CGRectMake(0, 0, 200, 21), NSTextAlignmentCenter);
    const auto start = std::chrono::steady_clock::now();
    UIImage* image = inBox(text, CGRectMake(0, 0, 200, 21), NSTextAlignmentCenter);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_LE(CGRectGetMaxX(ink(image)), 401);
}

TEST_F(Text, FontsKnowTheirMeasures) {
    EXPECT_EQ([font pointSize], 17);
    EXPECT_TRUE([[font fontName] isEqual:@"Inter-Regular"]);
    EXPECT_TRUE([[[UIFont boldSystemFontOfSize:10] fontName] isEqual:@"Inter-Bold"]);
    EXPECT_NEAR([font lineHeight], [font ascender] - [font descender], 1e-9);
    EXPECT_NEAR([font lineHeight], 20.6, 0.3);
    EXPECT_TRUE([font isEqual:[UIFont systemFontOfSize:17]]);
    EXPECT_FALSE([font isEqual:[UIFont boldSystemFontOfSize:17]]);
    EXPECT_EQ([[font fontWithSize:9] pointSize], 9);
}

TEST_F(Text, InBoldHasMoreInk) {
    const auto inkOf = [](UIFont* drawnFont) {
        return coverage(drawn({60, 60}, 2, [&](CGContextRef) { [@"HH" drawAtPoint:{3, 3} withFont:drawnFont]; }));
    };
    EXPECT_GT(inkOf([UIFont boldSystemFontOfSize:17]), inkOf(font) * 1.3);
}

TEST_F(Text, WithoutAContextIsReported) {
    testing::internal::CaptureStderr();
    [@"x" drawAtPoint:CGPointZero withFont:font];
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "<Error>: CGContextShowGlyphs: invalid context 0x0\n");
}

}  // namespace

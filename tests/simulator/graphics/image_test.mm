#include <sys/resource.h>

#include <atomic>
#include <fstream>
#include <thread>

#import "tests/simulator/graphics/drawing.h"
#include "tests/simulator/graphics/encoded_pictures.h"
#include "tests/support/parameter_name.h"

namespace {

NSData* dataOf(const std::string& bytes) { return [NSData dataWithBytes:bytes.data() length:bytes.size()]; }

class Images : public DrawingTest {};

class Formats : public DrawingTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(All, Formats, testing::Values("png", "jpeg", "tiff", "bmp"), test::ParameterName());

TEST_P(Formats, AreDecoded) {
    const std::string bytes = encode(quarters(64, 32), GetParam());
    ASSERT_FALSE(bytes.empty());
    UIImage* image = [UIImage imageWithData:dataOf(bytes)];
    ASSERT_NE(image, nil);
    EXPECT_EQ([image size].width, 64);
    EXPECT_EQ([image size].height, 32);
    EXPECT_EQ([image scale], 1);
    const phone::Pixel p = pixel(image, 8, 8), q = pixel(image, 60, 4), r = pixel(image, 4, 28);
    EXPECT_NEAR(p.r, 255, 4);
    EXPECT_NEAR(p.g, 0, 4);
    EXPECT_NEAR(q.g, 255, 4);
    EXPECT_NEAR(r.b, 255, 4);
}

TEST_P(Formats, CutOffAreNoPictures) {
    const std::string bytes = encode(quarters(16, 16), GetParam());
    for (size_t length = 0; length < bytes.size(); length += 1 + bytes.size() / 300) {
        NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
        EXPECT_EQ([UIImage imageWithData:dataOf(bytes.substr(0, length))], nil) << length << " of " << bytes.size();
        [pool drain];
    }
}

TEST_F(Images, ArePremultiplied) {
    UIImage* image = [UIImage imageWithData:dataOf(encode(quarters(8, 8), "png"))];
    EXPECT_EQ(pixel(image, 0, 0), red);
    EXPECT_EQ(pixel(image, 7, 0), green);
    EXPECT_EQ(pixel(image, 0, 7), blue);
    EXPECT_EQ(pixel(image, 7, 7), (phone::Pixel{128, 128, 128, 128}));
}

TEST_F(Images, ShowAnAnimationsFirstFrame) {
    UIImage* image = [UIImage imageWithData:dataOf(encodeGif(20, 10, {1, 0, 2}))];
    ASSERT_NE(image, nil);
    EXPECT_EQ([image size].width, 20);
    EXPECT_EQ(pixel(image, 0, 0), green);
    EXPECT_EQ(pixel(image, 19, 9), green);
}

TEST_F(Images, WhatIsNoPictureIsNil) {
    EXPECT_EQ([UIImage imageWithData:nil], nil);
    EXPECT_EQ([UIImage imageWithData:[NSData data]], nil);
    EXPECT_EQ([UIImage imageWithData:dataOf("not a picture at all")], nil);
    EXPECT_EQ([UIImage imageWithData:dataOf("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")], nil);
    EXPECT_EQ([UIImage imageWithData:dataOf(pngWithRows(50, 50, 20))], nil);
    EXPECT_NE([UIImage imageWithData:dataOf(pngWithRows(50, 50, 50))], nil);
    EXPECT_EQ([UIImage imageWithCGImage:nullptr], nil);
    EXPECT_EQ([UIImage imageWithContentsOfFile:nil], nil);
    EXPECT_EQ([UIImage imageWithContentsOfFile:@"/no/such/picture.png"], nil);
    EXPECT_EQ([UIImage imageWithContentsOfFile:@"/"], nil);
}

TEST_F(Images, OfAbsurdSizesCostNothing) {
    std::string gif = encodeGif(2, 2, {0});
    gif.replace(6, 4, "\xff\xff\xff\xff");
    EXPECT_EQ([UIImage imageWithData:dataOf(pngWithRows(30000, 30000, 1))], nil);
    EXPECT_EQ([UIImage imageWithData:dataOf(pngWithRows(2, 1u << 30, 1))], nil);
    EXPECT_EQ([UIImage imageWithData:dataOf(gif)], nil);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, 1024 * 1024) << "kilobytes";
}

// How the quarters look when turned upright: the upper left, upper right and lower left corner.
struct Turn {
    int exif;
    UIImageOrientation orientation;
    phone::Pixel upperLeft, upperRight, lowerLeft;
    bool sideways;
};

void PrintTo(const Turn& turn, std::ostream* out) { *out << "orientation " << turn.exif; }

class Orientations : public DrawingTest, public testing::WithParamInterface<Turn> {};

constexpr phone::Pixel black{0, 0, 0, 255};
INSTANTIATE_TEST_SUITE_P(All, Orientations,
                         testing::Values(Turn{1, UIImageOrientationUp, red, green, blue, false},
                                         Turn{2, UIImageOrientationUpMirrored, green, red, black, false},
                                         Turn{3, UIImageOrientationDown, black, blue, green, false},
                                         Turn{4, UIImageOrientationDownMirrored, blue, black, red, false},
                                         Turn{5, UIImageOrientationLeftMirrored, red, blue, green, true},
                                         Turn{6, UIImageOrientationRight, blue, red, black, true},
                                         Turn{7, UIImageOrientationRightMirrored, black, green, blue, true},
                                         Turn{8, UIImageOrientationLeft, green, black, red, true}),
                         test::ParameterName());

TEST_P(Orientations, AreDrawnUpright) {
    RawPicture picture = quarters(64, 32);
    for (size_t i = 0; i < picture.rgba.size(); i += 4) {
        if (picture.rgba[i + 3] == 128) {
            picture.rgba[i] = picture.rgba[i + 1] = picture.rgba[i + 2] = 0;
        }
    }
    UIImage* stored = [UIImage imageWithData:dataOf(withOrientation(encode(picture, "jpeg"), GetParam().exif))];
    ASSERT_NE(stored, nil);
    EXPECT_EQ([stored imageOrientation], GetParam().orientation);
    const CGSize size = GetParam().sideways ? CGSizeMake(32, 64) : CGSizeMake(64, 32);
    EXPECT_TRUE(CGSizeEqualToSize([stored size], size));
    EXPECT_EQ(CGImageGetWidth([stored CGImage]), 64u);
    UIImage* shown = drawn(size, 1, [&](CGContextRef) { [stored drawAtPoint:CGPointZero]; });
    const auto near = [&](size_t x, size_t y, phone::Pixel expected) {
        const phone::Pixel p = pixel(shown, x, y);
        EXPECT_TRUE(std::abs(p.r - expected.r) < 9 && std::abs(p.g - expected.g) < 9 && std::abs(p.b - expected.b) < 9)
            << x << ' ' << y << ": " << p << " instead of " << expected;
    };
    near(3, 3, GetParam().upperLeft);
    near(size_t(size.width) - 4, 3, GetParam().upperRight);
    near(3, size_t(size.height) - 4, GetParam().lowerLeft);
    EXPECT_EQ(coverage(shown), 64 * 32);
}

class ImageFiles : public DrawingTest {
  protected:
    ImageFiles() {
        char pattern[] = "/tmp/picturesXXXXXX";
        directory_ = mkdtemp(pattern);
    }
    ~ImageFiles() override {
        for (const std::string& file : files_) {
            std::remove(file.c_str());
        }
        rmdir(directory_.c_str());
    }
    NSString* file(const char* name) { return [NSString stringWithUTF8String:(directory_ + '/' + name).c_str()]; }
    void write(const char* name, int side) {
        files_.push_back(directory_ + '/' + name);
        std::ofstream(files_.back(), std::ios::binary) << encode(quarters(side, side), "png");
    }

  private:
    std::string directory_;
    std::vector<std::string> files_;
};

TEST_F(ImageFiles, TellTheirScaleByName) {
    write("a@3x.png", 30);
    UIImage* image = [UIImage imageWithContentsOfFile:file("a@3x.png")];
    EXPECT_EQ([image scale], 3);
    EXPECT_EQ([image size].width, 10);
}

TEST_F(ImageFiles, AreReplacedByTheScreensVariant) {
    write("a.png", 10);
    EXPECT_EQ([[UIImage imageWithContentsOfFile:file("a.png")] scale], 1);
    write("a@3x.png", 30);
    EXPECT_EQ([[UIImage imageWithContentsOfFile:file("a.png")] scale], 1);  // the screen's scale is 2
    write("a@2x.png", 20);
    UIImage* image = [UIImage imageWithContentsOfFile:file("a.png")];
    EXPECT_EQ([image scale], 2);
    EXPECT_EQ([image size].width, 10);
}

TEST_F(ImageFiles, ArriveWhereThePixelsAreWritten) {
    UIImage* image = drawn({4, 4}, 1, [](CGContextRef context) {
        [[UIColor redColor] setFill];
        CGContextFillRect(context, CGRectMake(0, 0, 2, 4));
    });
    write("out.png", 2);
    EXPECT_EQ(phone::problemOf(phone::writePng([image CGImage], [file("out.png") UTF8String])), "");
    UIImage* read = [UIImage imageWithContentsOfFile:file("out.png")];
    EXPECT_EQ([read size].width, 4);
    EXPECT_EQ(pixel(read, 1, 3), red);
    EXPECT_EQ(pixel(read, 2, 3), clear);
    const std::string missing = [file("no/such/directory.png") UTF8String];
    EXPECT_EQ(phone::problemOf(phone::writePng([image CGImage], missing)), missing + ": No such file or directory");
    EXPECT_FALSE(phone::writePng(nullptr, missing));
}

TEST_F(Images, SurviveThePngRepresentation) {
    UIImage* before = drawn({3, 3}, 1, [](CGContextRef context) {
        [[UIColor colorWithRed:1 green:0 blue:0 alpha:0.5] setFill];
        CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    });
    UIImage* after = [UIImage imageWithData:UIImagePNGRepresentation(before)];
    EXPECT_EQ(pixel(after, 0, 0), pixel(before, 0, 0));
    EXPECT_EQ(pixel(after, 1, 0), clear);
    EXPECT_EQ(UIImagePNGRepresentation(nil), nil);
}

TEST_F(Images, AreDecodedAndDrawnOnManyThreadsAtOnce) {
    const std::string png = encode(quarters(100, 100), "png"), jpeg = encode(quarters(100, 100), "jpeg");
    UIImage* shared = [UIImage imageWithData:dataOf(png)];
    std::atomic<int> right = 0;
    constexpr int threads = 6, rounds = 10;
    std::vector<std::thread> workers;
    for (int i = 0; i < threads; ++i) {
        workers.emplace_back([&] {
            GSRegisterCurrentThread();
            for (int round = 0; round < rounds; ++round) {
                NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
                UIImage* own = [UIImage imageWithData:dataOf(round % 2 == 0 ? png : jpeg)];
                UIImage* result = drawn({40, 40}, 2, [&](CGContextRef) {
                    [[UIBezierPath bezierPathWithRoundedRect:CGRectMake(0, 0, 40, 40) cornerRadius:5] addClip];
                    [own drawInRect:CGRectMake(0, 0, 40, 40)];
                    [shared drawInRect:CGRectMake(0, 0, 20, 20)];
                    [@"AB" drawInRect:CGRectMake(0, 10, 40, 21)
                             withFont:[UIFont systemFontOfSize:17]
                        lineBreakMode:NSLineBreakByTruncatingTail
                            alignment:NSTextAlignmentCenter];
                });
                const phone::Pixel p = phone::pixelAt([result CGImage], 4, 4).value_or(clear);
                right += p.r > 250 && p.g < 5 && p.a == 255 && coverage(result) > 5400 ? 1 : 0;
                [pool drain];
            }
            GSUnregisterCurrentThread();
        });
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    EXPECT_EQ(right, threads * rounds);
}

}  // namespace

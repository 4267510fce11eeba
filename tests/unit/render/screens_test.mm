// Screens that lack what those of the phones at hand have.
#import <objc/runtime.h>

#include <filesystem>

#include "tests/support/extension.h"
#include "tests/support/pictures.h"

namespace {

using test::pixel;
using test::samePixels;

SEL lacking = nullptr;

BOOL respondsToAllButOne(id self, SEL, SEL asked) {
    return !sel_isEqual(asked, lacking) && class_respondsToSelector(object_getClass(self), asked);
}

class Screens : public test::ExtensionTest {
  protected:
    void start() {
        boot();
        [settings() setIsRoundedPicsEnabled:YES];
        [settings() setIsMonogramEnabled:NO];
    }
    // From now on the screen says that it does not answer the message.
    static void takeAway(SEL selector) {
        lacking = selector;
        const Method method = class_getInstanceMethod([NSObject class], @selector(respondsToSelector:));
        ASSERT_TRUE(class_addMethod([UIScreen class], @selector(respondsToSelector:),
                                    reinterpret_cast<IMP>(&respondsToAllButOne), method_getTypeEncoding(method)));
        ASSERT_FALSE([[UIScreen mainScreen] respondsToSelector:selector]);
    }
    NSString* resource(const char* file) {
        return [NSString stringWithFormat:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/%s", file];
    }
    void removeResource(const char* file) {
        std::error_code error;
        EXPECT_TRUE(std::filesystem::remove(root.host([resource(file) UTF8String]), error)) << file;
    }
};

TEST_F(Screens, WithoutDisplayLinksTakePicturesFromThePlainFiles) {
    start();
    removeResource("recent@2x.png");
    removeResource("user_monogram_round@2x.png");
    takeAway(@selector(displayLinkWithTarget:selector:));
    UIImage* picture = [Utils defaultImage];
    EXPECT_FALSE(test::isTransparent(picture));
    EXPECT_EQ([Utils getContactImageInCacheForKey:resource("recent.png")], picture);
    EXPECT_TRUE(
        samePixels([Utils getMonogramImage], [UIImage imageWithContentsOfFile:resource("user_monogram_round.png")]));
}

TEST_F(Screens, WithoutAScaleEnlargeNothing) {
    start();
    UIImage* source = test::redPicture(10, 10, 1);
    takeAway(@selector(scale));
    UIImage* picture = [Utils scaleImage:source toSize:CGSizeMake(60, 60)];
    EXPECT_EQ([picture size].width, 60);
    EXPECT_EQ(pixel(picture, 24, 24).a, 0);
    EXPECT_EQ(pixel(picture, 25, 25).a, 255);
    EXPECT_EQ(pixel(picture, 34, 34).a, 255);
    EXPECT_EQ(pixel(picture, 35, 35).a, 0);
}

}  // namespace

#include "tests/support/encodings.h"
#include "tests/support/extension.h"

#include "simulator/runtime/process/device.h"

namespace {

class DeviceQueries : public test::ExtensionTest {
  protected:
    // Becomes the profile's phone of another system version.
    void bootVersion(const char* version) {
        phone::Device device = read();
        device.systemVersion = version;
        write(device);
        boot();
    }

    void bootOrientation(const char* profile, int orientation) {
        root.setDevice(profile);
        phone::Device device = read();
        device.orientation = orientation;
        write(device);
        boot();
        // The one that the host would have made.
        [[UIApplication alloc] init];
    }

    // Becomes a tablet with that phone's screen.
    void bootTablet(const char* profile) {
        root.setDevice(profile);
        phone::Device device = read();
        device.idiom = 1;
        write(device);
        boot();
    }

    void bootProfile(const char* profile) {
        root.setDevice(profile);
        boot();
    }

    phone::Device read() const {
        phone::Device device = phone::readDevice(root.path()).value();
        return device;
    }

    void write(const phone::Device& device) const {
        EXPECT_EQ(phone::problemOf(phone::writeDevice(root.path(), device)), "");
    }
};

TEST_F(DeviceQueries, Version616IsNeither7Nor8) {
    bootVersion("6.1.6");
    EXPECT_FALSE([Utils isIOS_7]);
    EXPECT_FALSE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, Version70Is7ButNot8) {
    bootVersion("7.0");
    EXPECT_TRUE([Utils isIOS_7]);
    EXPECT_FALSE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, Version712Is7ButNot8) {
    bootVersion("7.1.2");
    EXPECT_TRUE([Utils isIOS_7]);
    EXPECT_FALSE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, Version80IsBoth) {
    bootVersion("8.0");
    EXPECT_TRUE([Utils isIOS_7]);
    EXPECT_TRUE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, Version10IsBoth) {
    bootVersion("10.0");
    EXPECT_TRUE([Utils isIOS_7]);
    EXPECT_TRUE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, AVersionThatIsNoNumberIsNeither) {
    boot();
    // The device.plist takes versions only, so the platform's answer is replaced.
    Method method = class_getInstanceMethod([UIDevice class], @selector(systemVersion));
    method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) { return @"beta"; }));
    EXPECT_FALSE([Utils isIOS_7]);
    EXPECT_FALSE([Utils isIOS_8]);
}

TEST_F(DeviceQueries, MatchingVersionIgnoresLetterCaseAndTakesTheWholeText) {
    boot();
    Method method = class_getInstanceMethod([UIDevice class], @selector(systemVersion));
    method_setImplementation(method, reinterpret_cast<IMP>(+[](id, SEL) { return @"8.4 Beta"; }));
    EXPECT_TRUE([Utils isMatchingIOSFound:@"8.4 bETA"]);
    EXPECT_FALSE([Utils isMatchingIOSFound:@"8.4"]);
    EXPECT_FALSE([Utils isMatchingIOSFound:@"8.4 Beta 2"]);
    EXPECT_FALSE([Utils isMatchingIOSFound:@""]);
    EXPECT_FALSE([Utils isMatchingIOSFound:nil]);
}

TEST_F(DeviceQueries, AScreenOfTwoPixelsAPointIsRetinaAndAnIPhone4) {
    bootProfile("iphone6-8.4");
    EXPECT_TRUE([Utils isRetinaDisplay]);
    EXPECT_TRUE([Utils isIPhone4]);
}

TEST_F(DeviceQueries, AScreenOfThreePixelsAPointIsNeither) {
    bootProfile("iphone6plus-8.4");
    EXPECT_FALSE([Utils isRetinaDisplay]);
    EXPECT_FALSE([Utils isIPhone4]);
}

TEST_F(DeviceQueries, AScreenOfOnePixelAPointIsNeither) {
    bootProfile("ipad2-6.1");
    EXPECT_FALSE([Utils isRetinaDisplay]);
    EXPECT_FALSE([Utils isIPhone4]);
}

TEST_F(DeviceQueries, IPhone6IsKnownByItsHeight) {
    bootProfile("iphone6-9.3");
    EXPECT_TRUE([Utils isIPhone6]);
    EXPECT_FALSE([Utils isIPhone6Plus]);
    EXPECT_TRUE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, IPhone6PlusIsKnownByItsNativeHeight) {
    bootProfile("iphone6plus-9.3");
    EXPECT_FALSE([Utils isIPhone6]);
    EXPECT_TRUE([Utils isIPhone6Plus]);
    EXPECT_TRUE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, ASmallerPhoneIsNeitherIPhone6Nor6Plus) {
    bootProfile("iphone5s-7.1");
    EXPECT_FALSE([Utils isIPhone6]);
    EXPECT_FALSE([Utils isIPhone6Plus]);
    EXPECT_FALSE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, ATabletAsHighAsAnIPhone6IsNone) {
    bootTablet("iphone6-8.4");
    EXPECT_FALSE([Utils isIPhone6]);
    EXPECT_FALSE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, ATabletAsHighAsAPlusIsNone) {
    bootTablet("iphone6plus-8.4");
    EXPECT_FALSE([Utils isIPhone6Plus]);
    EXPECT_FALSE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, ADeviceThatLacksTheIdiomIsNotAskedForIt) {
    bootTablet("iphone6-8.4");
    // A device of the first systems, whose answer nobody can know.
    class_replaceMethod([UIDevice class], @selector(respondsToSelector:),
                        reinterpret_cast<IMP>(+[](id, SEL, SEL asked) {
                            return static_cast<BOOL>(!sel_isEqual(asked, @selector(userInterfaceIdiom)));
                        }),
                        "C@::");
    EXPECT_TRUE([Utils isIPhone6]);
    EXPECT_FALSE([Utils isIPhone6Plus]);
    EXPECT_TRUE([Utils isIPhone6OR6Plus]);
}

TEST_F(DeviceQueries, FromVersion8TheNativeHeightCountsHoweverThePhoneIsTurned) {
    bootOrientation("iphone6-8.4", 3);
    ASSERT_EQ([[UIScreen mainScreen] bounds].size.height, 375);
    EXPECT_TRUE([Utils isIPhone6]);
}

TEST_F(DeviceQueries, AScreenWithoutScaleIsNoRetina) {
    boot();
    // A screen of the first systems.
    class_replaceMethod(
        [UIScreen class], @selector(respondsToSelector:),
        reinterpret_cast<IMP>(+[](id, SEL, SEL asked) { return static_cast<BOOL>(asked != @selector(scale)); }),
        "C@::");
    EXPECT_FALSE([Utils isRetinaDisplay]);
}

TEST_F(DeviceQueries, ADisplayZoomedPlusIsNoPlus) {
    root.setDevice("iphone6plus-8.4");
    phone::Device device = read();
    device.width = 375;
    device.height = 667;
    device.nativeScale = 2.88;
    write(device);
    boot();
    EXPECT_FALSE([Utils isIPhone6Plus]);
    // 1921 pixels at 2.88 are not quite 667 points either.
    EXPECT_FALSE([Utils isIPhone6]);
}

TEST_F(DeviceQueries, BeforeNativeBoundsTheHeightIsThatOfTheBounds) {
    phone::Device device = read();
    device.systemVersion = "7.1";
    write(device);
    boot();
    ASSERT_FALSE([[UIScreen mainScreen] respondsToSelector:@selector(nativeBounds)]);
    EXPECT_TRUE([Utils isIPhone6]);
}

TEST_F(DeviceQueries, UprightSizesAreThoseOfTheBounds) {
    bootOrientation("iphone4-7.1", 1);
    EXPECT_EQ([Utils screenWidth], 320);
    EXPECT_EQ([Utils screenHeight], 480);
}

TEST_F(DeviceQueries, BeforeVersion8LandscapeSwapsTheUprightBounds) {
    bootOrientation("iphone4-7.1", 3);
    EXPECT_EQ([Utils screenWidth], 480);
    EXPECT_EQ([Utils screenHeight], 320);
}

TEST_F(DeviceQueries, TheOtherLandscapeSwapsThemToo) {
    bootOrientation("iphone4-7.1", 4);
    EXPECT_EQ([Utils screenWidth], 480);
    EXPECT_EQ([Utils screenHeight], 320);
}

TEST_F(DeviceQueries, UpsideDownSwapsNothing) {
    bootOrientation("iphone4-7.1", 2);
    EXPECT_EQ([Utils screenWidth], 320);
    EXPECT_EQ([Utils screenHeight], 480);
}

TEST_F(DeviceQueries, FromVersion8TheBoundsAreTakenAsTheyAre) {
    bootOrientation("iphone6-8.4", 3);
    const CGSize size = [[UIScreen mainScreen] bounds].size;
    EXPECT_GT(size.width, size.height);
    EXPECT_EQ([Utils screenWidth], size.width);
    EXPECT_EQ([Utils screenHeight], size.height);
}

TEST_F(DeviceQueries, EveryOperationAnswersWithTheDeclaredTypes) {
    boot();
    EXPECT_EQ(test::differences(@protocol(ZelkaCBUtils), objc_getClass("ZelkaCBUtils")), "");
    EXPECT_EQ(test::differences(@protocol(ZLKCBUIDeviceHardware), objc_getClass("ZLKCBUIDeviceHardware")), "");
}

TEST_F(DeviceQueries, EveryCategoryAnswersWithTheDeclaredTypes) {
    boot();
    EXPECT_EQ(test::differences(@protocol(ZelkaCBColors), [UIColor class]), "");
    EXPECT_EQ(test::differences(@protocol(ZelkaCBImages), [UIImage class]), "");
    EXPECT_EQ(test::differences(@protocol(ZelkaCBObjects), [NSObject class]), "");
    EXPECT_EQ(test::differences(@protocol(ZelkaCBCells), [UITableViewCell class]), "");
}

}  // namespace

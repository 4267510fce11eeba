#include "simulator/runtime/process/device.h"

#include <gtest/gtest.h>

#include <set>

#include "simulator/runtime/process/device_profiles.h"
#include "tests/support/parameter_name.h"
#include "tests/support/temp_root.h"

namespace {

using phone::Device;

TEST(DeviceProfiles, EveryOneIsReadBackAsWritten) {
    test::TempRoot root;
    for (const phone::DeviceProfile& profile : phone::deviceProfiles()) {
        std::optional<Device> written = phone::deviceFromProfile(profile.id);
        ASSERT_TRUE(written) << profile.id;
        written->rightToLeft = true;
        written->preferencesService = false;
        written->orientation = 3;
        ASSERT_EQ(phone::problemOf(phone::writeDevice(root.path(), *written)), "");
        Device read = phone::readDevice(root.path()).value();
        EXPECT_EQ(read, *written) << profile.id;
    }
}

TEST(DeviceProfiles, IdentifiersAreUniqueAndUnknownOnesGiveNothing) {
    std::set<std::string_view> ids;
    for (const phone::DeviceProfile& profile : phone::deviceProfiles()) EXPECT_TRUE(ids.insert(profile.id).second);
    EXPECT_FALSE(phone::deviceFromProfile("nokia3310"));
    EXPECT_FALSE(phone::deviceFromProfile(""));
}

TEST(DeviceProfiles, ScreensAreTheDevicesOwn) {
    const Device plus = *phone::deviceFromProfile("iphone6plus-8.4");
    EXPECT_EQ(plus.width, 414);
    EXPECT_EQ(plus.height, 736);
    EXPECT_EQ(plus.scale, 3);
    EXPECT_NEAR(plus.nativeScale * plus.width, 1080, 1e-6);
    const Device tablet = *phone::deviceFromProfile("ipad2-6.1");
    EXPECT_EQ(tablet.idiom, 1);
    EXPECT_EQ(tablet.scale, 1);
    EXPECT_EQ(tablet.machine, "iPad2,1");
}

TEST(DeviceFile, IsAnXmlPropertyList) {
    test::TempRoot root("iphone4-7.1");
    const std::string text = root.read("/device.plist");
    EXPECT_EQ(text.compare(0, 5, "<?xml"), 0);
    EXPECT_NE(text.find("<string>iPhone3,1</string>"), std::string::npos) << text;
    EXPECT_NE(text.find("<key>RightToLeft</key>"), std::string::npos) << text;
}

TEST(DeviceFile, MissingKeysKeepTheirDefaults) {
    test::TempRoot root;
    root.write(
        "/device.plist",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Scale</key><integer>3</integer></dict></plist>");
    Device device = phone::readDevice(root.path()).value();
    Device expected;
    expected.scale = 3;
    EXPECT_EQ(device, expected);
}

class UnusableDeviceFile : public testing::TestWithParam<const char*> {};

TEST_P(UnusableDeviceFile, IsRefusedNamingTheFile) {
    test::TempRoot root;
    root.write("/device.plist", GetParam());
    const std::string problem = phone::problemOf(phone::readDevice(root.path()));
    EXPECT_NE(problem.find("device.plist: "), std::string::npos) << problem;
}

INSTANTIATE_TEST_SUITE_P(Device, UnusableDeviceFile,
                         testing::Values("", "garbage {{", "<plist><dict><key>a", "bplist00xxxx", "( a, b )",
                                         "{ Scale = many; }", "{ Model = (); }",
                                         "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Scale</key>"
                                         "<integer>-3</integer></dict></plist>"),
                         test::ParameterName());

TEST(DeviceFile, NoFileIsRefused) {
    test::TempRoot root;
    Device device;
    EXPECT_NE(phone::problemOf(phone::readDevice(root.path() / "elsewhere")).find("cannot be read"), std::string::npos);
    EXPECT_NE(phone::problemOf(phone::writeDevice(root.path() / "elsewhere", device)), "");
}

}  // namespace

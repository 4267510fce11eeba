#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string_view>

#include "simulator/frameworks/uikit/graphics/pixels.h"
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/runtime/process/device_profiles.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

// A test that plays one phone; start() comes first. Each test runs in a process of its own.
class PhoneTest : public testing::Test {
  protected:
    void start(std::string_view profile, bool rightToLeft = false) {
        phone::Device device = phone::deviceFromProfile(profile).value();
        device.rightToLeft = rightToLeft;
        start(device);
    }

    void start(const phone::Device& device) {
        root_ = std::make_unique<test::TempRoot>();
        ASSERT_EQ(phone::problemOf(phone::writeDevice(root_->path(), device)), "");
        phone::boot(root_->path(), "test.uikit");
        pool_ = [[NSAutoreleasePool alloc] init];
    }

    ~PhoneTest() override { [pool_ drain]; }

    // The pixel of a picture at a point.
    static phone::Pixel at(UIImage* image, double x, double y) {
        const double scale = [image scale];
        return phone::pixelAt([image CGImage], static_cast<size_t>(x * scale), static_cast<size_t>(y * scale))
            .value_or(phone::Pixel{1, 2, 3, 4});
    }

  private:
    std::unique_ptr<test::TempRoot> root_;
    NSAutoreleasePool* pool_ = nil;
};

// Whether a call raises a platform exception.
template <class Call>
bool raises(Call call) {
    @try {
        call();
    } @catch (NSException*) {
        return true;
    }
    return false;
}

inline bool operator==(const CGRect& a, const CGRect& b) { return CGRectEqualToRect(a, b); }
inline void PrintTo(const CGRect& rect, std::ostream* out) { *out << [NSStringFromCGRect(rect) UTF8String]; }

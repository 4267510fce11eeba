// A phone with contacts, the library and host classes that a test can bend.
#pragma once

#include "tests/unit/contacts/contacts_test.h"
#include "tests/unit/hooks/host_classes.h"

namespace test {

constexpr NSInteger kPictureTag = 3232;
constexpr NSInteger kNameTag = 3233;
constexpr NSInteger kDetailTag = 3234;

inline std::string text(NSString* string) { return string != nil ? [string UTF8String] : "(nil)"; }

// "x y width height", in points.
std::string frameOf(UIView* view);

class HookTest : public ContactsTest {
  protected:
    using ContactsTest::ContactsTest;

    void start(const char* bundleIdentifier = "com.apple.springboard") { boot(bundleIdentifier); }
    std::string happened() const { return [hostEvents() UTF8String]; }
    void forget() { [hostEvents() setString:@""]; }
    // Runs what is queued, and what that queues.
    void settle();
    long queued() const { return static_cast<long>([[Utils queue] operationCount]); }

    // A contact with a picture of one colour.
    int addWithPhoto(Rgb color, const char* first = "Ann", const char* last = "Lee");
    // Puts pictures of one colour in the place of a picture of the preference bundle, at all scales.
    void replaceBundlePicture(const char* name, Rgb color);

    static UIImageView* pictureOf(UIView* cell) { return (UIImageView*)[cell viewWithTag:kPictureTag]; }
    // The colour in the picture's middle.
    static phone::Pixel middle(UIImage* picture);
    static bool shows(UIView* cell, Rgb color);
};

}  // namespace test

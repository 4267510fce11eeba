#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

namespace {

class PropertyLists : public testing::Test {
  protected:
    PropertyLists() {
        phone::boot(root_.path(), "com.apple.springboard");
        pool_ = [[NSAutoreleasePool alloc] init];
    }
    ~PropertyLists() override { [pool_ drain]; }

    NSDictionary* dictionaryOf(std::string_view bytes) {
        root_.write("/tmp/list.plist", bytes);
        return [NSDictionary dictionaryWithContentsOfFile:@"/tmp/list.plist"];
    }

  private:
    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
};

TEST_F(PropertyLists, AreReadInTheNotationsOfAPhone) {
    EXPECT_EQ([[dictionaryOf("{ key = value; }") objectForKey:@"key"] UTF8String], std::string("value"));
    NSData* binary = [NSPropertyListSerialization dataWithPropertyList:@{@"key" : @"value"}
                                                                format:NSPropertyListBinaryFormat_v1_0
                                                               options:0
                                                                 error:NULL];
    const std::string bytes(static_cast<const char*>([binary bytes]), [binary length]);
    EXPECT_EQ(bytes.substr(0, 8), "bplist00");
    EXPECT_EQ([[dictionaryOf(bytes) objectForKey:@"key"] UTF8String], std::string("value"));
}

TEST_F(PropertyLists, AreNotReadInANotationThatAPhoneDoesNotKnow) {
    NSData* foreign = [NSPropertyListSerialization dataWithPropertyList:@{@"key" : @"value"}
                                                                 format:NSPropertyListGNUstepBinaryFormat
                                                                options:0
                                                                  error:NULL];
    ASSERT_GT([foreign length], 0u);
    NSError* error = nil;
    EXPECT_EQ([NSPropertyListSerialization propertyListWithData:foreign options:0 format:NULL error:&error], nil);
    EXPECT_EQ([error code], 3840);
    EXPECT_EQ(dictionaryOf(std::string(static_cast<const char*>([foreign bytes]), [foreign length])), nil);
}

// {42: true} or {"*": true}; no phone's reader takes a dictionary with other keys than texts.
std::string dictionaryWithKey(const std::string& key) {
    return "bplist00\xd1\x01\x02" + key + "\x09" + "\x08\x0b\x0d" + std::string(6, '\0') + "\x01\x01" +
           std::string(7, '\0') + "\x03" + std::string(15, '\0') + "\x0e";
}

TEST_F(PropertyLists, AreNilForKeysThatAreNoTexts) {
    EXPECT_TRUE([[dictionaryOf(dictionaryWithKey("\x51*")) objectForKey:@"*"] boolValue]);
    EXPECT_EQ(dictionaryOf(dictionaryWithKey("\x10*")), nil);
}

TEST_F(PropertyLists, AreNilForDamagedFiles) {
    for (const char* damaged : {"", "{", "<?xml version=\"1.0\"?><plist><dict>", "bplist00", "bplist00\xff\xff\xff"})
        EXPECT_EQ(dictionaryOf(damaged), nil) << damaged;
}

}  // namespace

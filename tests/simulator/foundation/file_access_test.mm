#import <Foundation/Foundation.h>
#include <errno.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

extern "C" int sysctlbyname(const char* name, void* value, size_t* size, const void* newValue, size_t newSize);

namespace {

namespace fs = std::filesystem;

NSString* const settings = @"/var/mobile/Library/Preferences/com.example.plist";

class FileAccess : public testing::Test {
  protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        phone::boot(root_.path(), "com.example.host");
    }
    void TearDown() override { [pool_ drain]; }

    std::string in(const char* path) const { return (root_.path() / path).string(); }

    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
};

TEST_F(FileAccess, HomeIsMobiles) {
    EXPECT_TRUE([NSHomeDirectory() isEqualToString:@"/var/mobile"]);
    EXPECT_TRUE([[@"~/Library" stringByExpandingTildeInPath] isEqualToString:@"/var/mobile/Library"]);
}

TEST_F(FileAccess, MainBundleHasTheProcessesIdentifier) {
    EXPECT_TRUE([[[NSBundle mainBundle] bundleIdentifier] isEqualToString:@"com.example.host"]);
}

TEST_F(FileAccess, AtomicAndPlainWritesLandInTheRootAndReadBack) {
    for (BOOL atomically : {NO, YES}) {
        NSDictionary* written = @{@"flag" : [NSNumber numberWithBool:YES], @"text" : @"é😀", @"list" : @[ @1, @2.5 ]};
        EXPECT_TRUE([written writeToFile:settings atomically:atomically]);
        const std::string text = root_.read([settings UTF8String]);
        EXPECT_EQ(text.compare(0, 5, "<?xml"), 0) << text;
        EXPECT_NE(text.find("<true/>"), std::string::npos) << text;
        EXPECT_TRUE([[NSDictionary dictionaryWithContentsOfFile:settings] isEqual:written]);
        // The same file by the relative path that a process in the root may use.
        EXPECT_TRUE([[NSDictionary dictionaryWithContentsOfFile:@"User/Library/Preferences/com.example.plist"]
            isEqual:written]);
        EXPECT_TRUE([[NSFileManager defaultManager] removeItemAtPath:settings error:NULL]);
    }
    EXPECT_EQ(fs::is_empty(in("private/var/mobile/Library/Preferences")), true);
}

TEST_F(FileAccess, WhatNoPropertyListHoldsIsNotWritten) {
    EXPECT_FALSE([[NSDictionary dictionaryWithObject:[[[NSObject alloc] init] autorelease]
                                              forKey:@"k"] writeToFile:settings atomically:YES]);
    EXPECT_FALSE(root_.exists([settings UTF8String]));
    EXPECT_TRUE([@[ @"a" ] writeToFile:settings atomically:YES]);
    EXPECT_TRUE([[NSArray arrayWithContentsOfFile:settings] isEqual:@[ @"a" ]]);
}

TEST_F(FileAccess, FileManagerSeesThePhone) {
    NSFileManager* files = [NSFileManager defaultManager];
    BOOL isDirectory = NO;
    EXPECT_TRUE([files fileExistsAtPath:@"/var/mobile/Library" isDirectory:&isDirectory]);
    EXPECT_TRUE(isDirectory);
    EXPECT_TRUE([files fileExistsAtPath:@"/device.plist" isDirectory:NULL]);
    EXPECT_FALSE([files fileExistsAtPath:@"/usr/bin/env" isDirectory:NULL]);
    EXPECT_FALSE([files fileExistsAtPath:@"/../../usr/bin/env" isDirectory:NULL]);
    EXPECT_TRUE([[files currentDirectoryPath] isEqualToString:@"/"]);
    EXPECT_TRUE([files createDirectoryAtPath:@"/tmp/a/b" withIntermediateDirectories:YES attributes:nil error:NULL]);
    EXPECT_TRUE([files moveItemAtPath:@"/tmp/a/b" toPath:@"/tmp/c" error:NULL]);
    EXPECT_TRUE(fs::is_directory(in("private/var/tmp/c")));
    EXPECT_EQ([[files contentsOfDirectoryAtPath:@"/tmp" error:NULL] count], 2u);
}

TEST_F(FileAccess, StringsAndDataToo) {
    NSString* path = @"/tmp/text";
    EXPECT_TRUE([@"line" writeToFile:path atomically:YES encoding:NSUTF8StringEncoding error:NULL]);
    EXPECT_TRUE([[NSString stringWithContentsOfFile:path encoding:NSUTF8StringEncoding error:NULL] isEqual:@"line"]);
    EXPECT_EQ([[NSData dataWithContentsOfFile:path] length], 4u);
    EXPECT_EQ(root_.read("/tmp/text"), "line");
    EXPECT_FALSE([@"x" writeToFile:@"/no/such/folder/x" atomically:YES encoding:NSUTF8StringEncoding error:NULL]);
}

TEST_F(FileAccess, RemovingALinkLeavesWhatItLeadsTo) {
    EXPECT_TRUE([[NSFileManager defaultManager] removeItemAtPath:@"/User" error:NULL]);
    EXPECT_FALSE(fs::exists(fs::symlink_status(in("User"))));
    EXPECT_TRUE(fs::exists(in("private/var/mobile/Library")));
}

TEST_F(FileAccess, DamagedPropertyListsReadAsNothingAndSayNothing) {
    testing::internal::CaptureStderr();
    for (NSString* damaged in
         @[ @"garbage {{", @"", @"<plist><dict><key>a", @"bplist00garbage", @"( a, b )", @"<not xml" ]) {
        root_.write([settings UTF8String], [damaged UTF8String]);
        EXPECT_EQ([NSDictionary dictionaryWithContentsOfFile:settings], nil) << [damaged UTF8String];
        EXPECT_EQ([[[NSMutableDictionary alloc] initWithContentsOfFile:settings] autorelease], nil);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(FileAccess, FreopenOpensPhonePathsAndKeepsTheDescriptor) {
    // A name of its own: nothing of that name lies in the machine's folder.
    const std::string path = "/tmp/" + root_.path().filename().string() + ".log";
    FILE* stream = fopen("/dev/null", "w");
    ASSERT_NE(stream, nullptr);
    const int descriptor = fileno(stream);
    ASSERT_EQ(freopen(path.c_str(), "a+", stream), stream);
    EXPECT_EQ(fileno(stream), descriptor);
    EXPECT_EQ(write(descriptor, "first\n", 6), 6);
    ASSERT_EQ(freopen(path.c_str(), "a+", stream), stream);
    fputs("second\n", stream);
    fclose(stream);
    EXPECT_EQ(root_.read(path), "first\nsecond\n");
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(FileAccess, SysctlKnowsTheMachine) {
    size_t size = 0;
    ASSERT_EQ(sysctlbyname("hw.machine", nullptr, &size, nullptr, 0), 0);
    std::string machine(size, 'x');
    ASSERT_EQ(sysctlbyname("hw.machine", machine.data(), &size, nullptr, 0), 0);
    EXPECT_STREQ(machine.c_str(), "iPhone7,2");
    size = 3;
    EXPECT_EQ(sysctlbyname("hw.machine", machine.data(), &size, nullptr, 0), -1);
    EXPECT_EQ(errno, ENOMEM);
    EXPECT_EQ(sysctlbyname("hw.nothing", nullptr, &size, nullptr, 0), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(UnbootedProcess, SeesTheMachine) {
    @autoreleasepool {
        EXPECT_TRUE([[NSFileManager defaultManager] fileExistsAtPath:@"/usr/bin/env"]);
        EXPECT_FALSE([NSHomeDirectory() isEqualToString:@"/var/mobile"]);
    }
}

TEST(ProcessWithoutIdentifier, HasNone) {
    test::TempRoot root;
    @autoreleasepool {
        phone::boot(root.path(), "");
        EXPECT_EQ([[NSBundle mainBundle] bundleIdentifier], nil);
    }
}

}  // namespace

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

template <typename Work>
std::string standardErrorOf(Work work) {
    testing::internal::CaptureStderr();
    @autoreleasepool {
        work();
    }
    return testing::internal::GetCapturedStderr();
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(Log, WritesOneLineToStandardError) {
    const std::string line = standardErrorOf([] { NSLog(@"Got '%@' %d", @"é😀", 7); });
    EXPECT_TRUE(endsWith(line, "] Got 'é😀' 7\n")) << line;
}

TEST(Log, TakesHalfSurrogatePairs) {
    const std::string line =
        standardErrorOf([] { NSLog(@"first %@.", [[NSString stringWithUTF8String:"😀"] substringToIndex:1]); });
    EXPECT_TRUE(endsWith(line, "first \xEF\xBF\xBD.\n")) << line;
}

TEST(Log, TakesNulsNilsAndNoText) {
    const unichar nul[] = {'a', 0, 'b'};
    const std::string line = standardErrorOf([&] { NSLog(@"%@", [NSString stringWithCharacters:nul length:3]); });
    EXPECT_TRUE(endsWith(line, std::string("a\0b\n", 4))) << line;
    EXPECT_TRUE(endsWith(standardErrorOf([] { NSLog(@"%@", nil); }), "(null)\n"));
    EXPECT_TRUE(endsWith(standardErrorOf([] { NSLog(@""); }), "] \n"));
}

TEST(Log, TakesVeryLongText) {
    const std::string line = standardErrorOf(
        [] { NSLog(@"%@.", [@"" stringByPaddingToLength:1000000 withString:@"0123456789" startingAtIndex:0]); });
    EXPECT_GT(line.size(), 1000000u);
    EXPECT_TRUE(endsWith(line, "789.\n"));
}

TEST(Log, LinesOfManyThreadsStayWhole) {
    const std::string text = standardErrorOf([] {
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([] {
                GSRegisterCurrentThread();
                for (int i = 0; i < 200; ++i) {
                    @autoreleasepool {
                        NSLog(@"<%@>", [@"" stringByPaddingToLength:200 withString:@"x" startingAtIndex:0]);
                    }
                }
                GSUnregisterCurrentThread();
            });
        }
        for (std::thread& thread : threads) thread.join();
    });
    const std::string whole = "<" + std::string(200, 'x') + ">\n";
    size_t lines = 0;
    for (size_t at = text.find(whole); at != std::string::npos; at = text.find(whole, at + 1)) ++lines;
    EXPECT_EQ(lines, 800u);
}

}  // namespace

#include "src/platform/log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSValue.h"
#include "src/util/log.h"

namespace zelka {
namespace {

using testing::EndsWith;

class Log : public testing::Test {
  protected:
    // What the process logs while the statement runs.
    template <class Statement>
    std::string logged(Statement statement) {
        testing::internal::CaptureStderr();
        statement();
        return testing::internal::GetCapturedStderr();
    }

    AutoreleasePool pool;
};

TEST_F(Log, JoinsPartsOfEveryKind) {
    const char* none = nullptr;
    EXPECT_STREQ(joinText("a", 1, -2L, 3000000000LL, literal<"ü">(), NSObject{}, none, NSNumber::of(7)).utf8(),
                 "a1-23000000000ü(null)(null)7");
}

TEST_F(Log, ReadsCTextsAsUTF8AndNoOtherWay) {
    EXPECT_STREQ(joinText("é👋").utf8(), "é👋");
    EXPECT_STREQ(joinText("\xff\xfe").utf8(), "(null)");
}

TEST_F(Log, WritesDirectivesAsTheyStand) {
    EXPECT_THAT(logged([] { logParts("100%@ %s %d %n", literal<" %@">()); }), EndsWith(" 100%@ %s %d %n %@\n"));
}

TEST_F(Log, WritesLongLinesWhole) {
    auto text = send<NSString, "stringByPaddingToLength:withString:startingAtIndex:">(literal<"">(), NSUInteger{20000},
                                                                                      literal<"x">(), NSUInteger{0});
    EXPECT_THAT(logged([&] { logText(text); }), EndsWith(std::string(20000, 'x') + "\n"));
}

TEST_F(Log, HasTheLibrarysForms) {
    EXPECT_THAT(logged([] { logInformation(LogSite("-[A b]", 88), "text ", 1); }),
                EndsWith(" com.norvex.ZelkaCB: Information => -[A b], [Line 88], text 1\n"));
    EXPECT_THAT(logged([] { logError(LogSite("-[A b]", 12), "text"); }),
                EndsWith(" com.norvex.ZelkaCB: Error => -[A b], [Line 12], text\n"));
    EXPECT_THAT(logged([] { logInfoPlain("text"); }), EndsWith(" com.norvex.ZelkaCB => Info: text\n"));
    EXPECT_THAT(logged([] { logErrorPlain("text"); }), EndsWith(" com.norvex.ZelkaCB => Error: text\n"));
}

TEST_F(Log, TellsTheStatementsOwnLineWhenNoneIsGiven) {
    constexpr LogSite site("f");
    static_assert(site.line == __LINE__ - 1);
    EXPECT_STREQ(site.operation, "f");
}

}  // namespace
}  // namespace zelka

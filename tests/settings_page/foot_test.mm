// The page's foot: version and log.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>

#include "simulator/frameworks/foundation/replace_method.h"
#include "tests/settings_page/page.h"

namespace {

constexpr const char* kLog = "/tmp/ZelkaCB.log";

class PageFoot : public test::PageTest {
  protected:
    // The text at the end of that row.
    std::string value(const char* labelKey) const {
        return [[[cell(row(labelKey)) detailTextLabel] text] UTF8String] ?: "";
    }
    void deleteLog(NSInteger button) {
        tap("deleteLog");
        ASSERT_EQ(std::string([[[UIAlertView _frontmost] message] UTF8String]), english("deleteLogQuestion"));
        [[UIAlertView _frontmost] _pressButtonAtIndex:button];
    }
};

TEST_F(PageFoot, ShowsTheVersion) {
    open();
    EXPECT_EQ(value("version"), ZELKA_VERSION);
}

TEST_F(PageFoot, ShowsHowLargeTheLogIs) {
    root.write(kLog, std::string(12345, '.'));
    open();
    EXPECT_THAT(value("log"), testing::MatchesRegex("1[23] KB"));
}

TEST_F(PageFoot, SaysThatThereIsNoLog) {
    open();
    EXPECT_EQ(value("log"), english("noLog"));
}

// The processes that log have the file open for appending, as here.
TEST_F(PageFoot, DeletesTheLogUnderThoseWhoWriteIt) {
    root.write(kLog, std::string(12345, '.'));
    const int writer = ::open(root.host(kLog).c_str(), O_WRONLY | O_APPEND);
    open();
    deleteLog(1);
    EXPECT_EQ(root.read(kLog), "");
    EXPECT_THAT(value("log"), testing::HasSubstr("Zero"));
    EXPECT_EQ(::write(writer, "a new line\n", 11), 11);
    EXPECT_EQ(root.read(kLog), "a new line\n");
    ::close(writer);
}

TEST_F(PageFoot, KeepsTheLogWhenTheUserCancels) {
    root.write(kLog, "a line\n");
    open();
    deleteLog(0);
    EXPECT_EQ(root.read(kLog), "a line\n");
}

// Anybody may leave a link in the folder.
TEST_F(PageFoot, LeavesAloneWhatALinkInTheLogsPlaceLeadsTo) {
    root.write("/var/mobile/precious", "precious");
    std::filesystem::create_directories(std::filesystem::path(root.host(kLog)).parent_path());
    std::filesystem::create_symlink("../../var/mobile/precious",
                                    std::filesystem::path(root.path()) / "private/var/tmp/ZelkaCB.log");
    open();
    EXPECT_EQ(value("log"), english("noLog"));
    deleteLog(1);
    EXPECT_EQ(root.read("/var/mobile/precious"), "precious");
}

// A file that the process may not write.
id openNothing(id, SEL, NSString*) { return nil; }

TEST_F(PageFoot, SaysThatALogCannotBeDeleted) {
    root.write(kLog, "a line\n");
    open();
    phone::replaceMethod(objc_getMetaClass("NSFileHandle"), "fileHandleForWritingAtPath:", openNothing);
    deleteLog(1);
    EXPECT_EQ(std::string([[[UIAlertView _frontmost] message] UTF8String]), english("cannotDeleteLog"));
    EXPECT_EQ(root.read(kLog), "a line\n");
}

}  // namespace

#include "simulator/runtime/file_system/phone_root.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_root.h"

namespace {

namespace fs = std::filesystem;
using phone::hostPath;

class PhoneRoot : public testing::Test {
  protected:
    std::string in(const char* path) const { return (root_.path() / path).string(); }
    std::string map(std::string_view path) const { return hostPath(path, root_.path()); }

    test::TempRoot root_;
};

TEST_F(PhoneRoot, AbsolutePathsGoIntoTheRoot) {
    EXPECT_EQ(map("/"), root_.path());
    EXPECT_EQ(map("/device.plist"), in("device.plist"));
    EXPECT_EQ(map("/private/var/mobile/none/at/all"), in("private/var/mobile/none/at/all"));
    EXPECT_EQ(map("//private//var/./mobile"), in("private/var/mobile"));
}

TEST_F(PhoneRoot, TheRootsLinksAreFollowed) {
    EXPECT_EQ(map("/var/mobile/Library"), in("private/var/mobile/Library"));
    EXPECT_EQ(map("/tmp/ZelkaCB.log"), in("private/var/tmp/ZelkaCB.log"));
    EXPECT_EQ(map("/User/Library/x"), in("private/var/mobile/Library/x"));
    EXPECT_EQ(map("/etc/passwd"), in("private/etc/passwd"));
}

TEST_F(PhoneRoot, ParentDirectoriesNeverClimbOut) {
    EXPECT_EQ(map("/.."), root_.path());
    EXPECT_EQ(map("/../../../etc/passwd"), in("private/etc/passwd"));
    EXPECT_EQ(map("/var/mobile/../../../../x"), in("x"));
    // A parent is the parent of the place, not of the name: /var/tmp's is /private/var.
    EXPECT_EQ(map("/tmp/.."), in("private/var"));
}

TEST_F(PhoneRoot, LinksNeverLeadOut) {
    fs::create_symlink("/etc", root_.path() / "absolute");
    fs::create_symlink("../../../../../../../../../../etc", root_.path() / "climbing");
    fs::create_symlink("/absolute/deeper", root_.path() / "chained");
    EXPECT_EQ(map("/absolute/passwd"), in("private/etc/passwd"));
    EXPECT_EQ(map("/absolute"), in("etc"));
    EXPECT_EQ(map("/climbing"), in("etc"));
    EXPECT_EQ(map("/climbing/passwd"), in("private/etc/passwd"));
    EXPECT_EQ(map("/chained"), in("private/etc/deeper"));
}

TEST_F(PhoneRoot, ALastLinkThatStaysInsideIsKeptAsALink) {
    EXPECT_EQ(map("/User"), in("User"));
    EXPECT_TRUE(fs::is_symlink(map("/User")));
    EXPECT_EQ(map("/User/"), in("User") + "/");
}

TEST_F(PhoneRoot, LoopsOfLinksEnd) {
    fs::create_symlink("/b", root_.path() / "a");
    fs::create_symlink("/a", root_.path() / "b");
    const std::string path = map("/a/x");
    EXPECT_EQ(path.compare(0, root_.path().native().size(), root_.path().native()), 0);
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(PhoneRoot, PathsThatAreInTheRootAlreadyStay) {
    EXPECT_EQ(map(in("private/var/mobile")), in("private/var/mobile"));
    EXPECT_EQ(map(root_.path().native()), root_.path().native());
    // A neighbour whose name merely begins alike is no path of the root.
    const std::string neighbour = "/var/" + root_.path().filename().string() + "x";
    EXPECT_EQ(map(neighbour), in("private") + neighbour);
    EXPECT_NE(map(root_.path().native() + "x"), root_.path().native() + "x");
}

TEST_F(PhoneRoot, RelativePathsStayUnlessTheyClimb) {
    EXPECT_EQ(map("User/Library/Preferences"), "User/Library/Preferences");
    EXPECT_EQ(map(""), "");
    fs::current_path(root_.path() / "private");
    EXPECT_EQ(map("../../../../etc/passwd"), in("private/etc/passwd"));
    EXPECT_EQ(map("var/../x"), in("private/x"));
}

TEST_F(PhoneRoot, WithoutARootNothingIsMapped) {
    EXPECT_EQ(hostPath("/etc/passwd"), "/etc/passwd");
    EXPECT_EQ(phone::phonePath("/etc/passwd"), "/etc/passwd");
}

}  // namespace

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/bootstrap/elf_file.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// What the address sanitizer adds to every file that it watches, and the compiler's library to those for arm64.
bool isCompilers(const std::string& name) {
    return name.starts_with("asan.module_") || name == "init_have_lse_atomics";
}

std::vector<std::string> ours(std::vector<std::string> names) {
    std::erase_if(names, isCompilers);
    return names;
}

class LibraryFileTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(file.problem, ""); }

    const test::LibraryFile file = test::readLibrary(ZELKA_LIBRARY);
};

TEST_F(LibraryFileTest, HasExactlyTwoInitialisersInTheirOrder) {
    EXPECT_THAT(ours(file.initialisers),
                ElementsAre("zelka::(anonymous namespace)::bootstrap()", "zelka::(anonymous namespace)::hookHost()"));
    EXPECT_FALSE(file.hasOldInitialisers);
}

TEST_F(LibraryFileTest, HasNoFinalisers) { EXPECT_THAT(ours(file.finalisers), ElementsAre()); }

TEST_F(LibraryFileTest, HasNoCodeThatInitialisesVariables) {
    ASSERT_FALSE(file.symbols.empty());
    for (const std::string& name : file.symbols) {
        EXPECT_THAT(name, Not(HasSubstr("_GLOBAL__sub_I_")));
        EXPECT_THAT(name, Not(HasSubstr("__cxx_global_var_init")));
        EXPECT_THAT(name, Not(HasSubstr("__cxx_global_array_dtor")));
    }
}

TEST_F(LibraryFileTest, ExportsCreateRoundedCornerPathAndNothingElse) {
    EXPECT_THAT(file.exports, ElementsAre("createRoundedCornerPath"));
}

TEST(ReadLibrary, TellsAFileThatIsNoLibrary) {
    EXPECT_NE(test::readLibrary("/etc/passwd").problem, "");
    EXPECT_NE(test::readLibrary("/no/such/file").problem, "");
}

}  // namespace

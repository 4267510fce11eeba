// Phones of another processor, whose hosts and library are in another build beside phonesim's.
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::HasSubstr;

namespace fs = std::filesystem;

constexpr const char* kPhonesLibrary = "phone/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.dylib";

// A phonesim that sees builds of the test's own.
class OtherProcessor : public PhoneSim {
  protected:
    void SetUp() override {
        const fs::path own = fs::path(PHONESIM).parent_path();
        fs::create_directories(path_ / "build/own/simulator/tool");
        fs::copy_file(PHONESIM, path_ / "build/own/simulator/tool/phonesim");
        for (const char* place : {"../hosts", "../../src", "../../resources"}) {
            fs::create_directory_symlink((own / place).lexically_normal(),
                                         (path_ / "build/own/simulator/tool" / place).lexically_normal());
        }
        fs::create_directory_symlink(ZELKA_SOURCES "/resources", path_ / "resources");
    }

    // Hosts that note how they were started, and a library that no processor runs.
    void buildOther() const {
        write("build/arm64/resources/ZelkaCBSettings.bundle/a.png", "a picture");
        write("build/arm64/device/ZelkaCB_phone/ZelkaCB.dylib", "for the other processor");
        for (const char* host : {"callbar_view_service", "springboard"}) {
            const std::string name = std::string("build/arm64/simulator/hosts/") + host;
            write(name, "#!/bin/sh\necho \"$0 $*\" >>'" + (path_ / "started").string() + "'\nexit 3\n");
            fs::permissions(path_ / name, fs::perms::owner_all);
        }
    }

    Outcome phonesim(const std::string& arguments) const {
        const std::string command = "cd '" + path_.string() + "' && build/own/simulator/tool/phonesim " + arguments +
                                    " >.out 2>.err </dev/null";
        const int status = system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(".out"), read(".err")};
    }
};

TEST_F(OtherProcessor, HasItsLibraryOnThePhoneAndItsHostsStarted) {
    buildOther();
    ASSERT_EQ(phonesim("new phone --processor arm64").err, "");
    EXPECT_EQ(read(kPhonesLibrary), "for the other processor");
    EXPECT_FALSE(fs::exists(path_ / "phone/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.so"));
    EXPECT_THAT(phonesim("shot phone recents --row-details").err, HasSubstr("status 3"));
    EXPECT_THAT(read("started"), HasSubstr((path_ / "build/arm64/simulator/hosts/callbar_view_service").string()));
    EXPECT_THAT(phonesim("shot phone recents --row-details --process springboard").err, HasSubstr("status 3"));
    EXPECT_THAT(read("started"), HasSubstr((path_ / "build/arm64/simulator/hosts/springboard").string()));
}

TEST_F(OtherProcessor, GetsItsOwnLibraryWhenThePresentOneIsInstalled) {
    buildOther();
    ASSERT_EQ(phonesim("new phone --processor arm64").status, 0);
    write("build/arm64/device/ZelkaCB_phone/ZelkaCB.dylib", "a newer one");
    EXPECT_THAT(phonesim("shot phone recents --row-details").err, HasSubstr("\"phonesim install"));
    ASSERT_EQ(phonesim("install phone").err, "");
    EXPECT_EQ(read(kPhonesLibrary), "a newer one");
}

TEST_F(OtherProcessor, IsRefusedWithTheCommandThatBuildsForIt) {
    const Outcome made = phonesim("new phone --processor arm64");
    EXPECT_EQ(made.status, 1);
    EXPECT_THAT(made.err, HasSubstr("script/test-arm builds them"));
    EXPECT_THAT(made.err, HasSubstr((path_ / "build/arm64/simulator/hosts").string()));
    EXPECT_FALSE(fs::exists(path_ / "phone"));
}

TEST_F(OtherProcessor, IsOneThatHostsAreBuiltFor) {
    const Outcome made = phonesim("new phone --processor vax");
    EXPECT_EQ(made.status, 2);
    EXPECT_THAT(made.err, HasSubstr("arm64"));
}

}  // namespace

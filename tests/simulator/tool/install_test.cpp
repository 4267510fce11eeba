// phonesim as `cmake --install` leaves it, moved to another place.
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::HasSubstr;

namespace fs = std::filesystem;

// Installed once for all tests of this process.
class InstalledPhoneSim : public PhoneSim {
  protected:
    void SetUp() override {
        const std::string first = (path_ / "first").string();
        const std::string install = "cmake --install '" ZELKA_BUILD "' --prefix '" + first + "' >/dev/null";
        ASSERT_EQ(system(install.c_str()), 0);
        fs::rename(first, path_ / "second");
    }
    // Runs a command with the installed phonesim in the search path.
    Outcome shell(const std::string& command) const {
        const std::string all = "cd '" + path_.string() + "' && PATH=\"$PWD/second/bin:$PATH\" && { " + command +
                                " ; } >.out 2>.err </dev/null";
        const int status = system(("bash -c '" + all + "'").c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(".out"), read(".err")};
    }
    // What bash offers for the last of these words.
    std::string offered(const std::string& words) const {
        write("complete.sh",
              "PATH=\"$PWD/second/bin:$PATH\"\n"
              ". second/share/bash-completion/completions/phonesim\n"
              "COMP_WORDS=(" +
                  words +
                  ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                  "compopt() { :; }\n"
                  "_phonesim phonesim\necho \"${COMPREPLY[*]}\"\n");
        const Outcome outcome = shell("bash complete.sh");
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
};

TEST_F(InstalledPhoneSim, MakesAPhoneAndDrawsAListWhereverItStands) {
    Outcome made = shell(
        "phonesim new phone --contacts second/share/zelkacb/samples/contacts.vcf --photos "
        "/var/lib/AccountsService/icons");
    ASSERT_EQ(made.status, 0) << made.err;
    Outcome shot = shell("phonesim shot phone recents --out recents.png --row-details");
    EXPECT_EQ(shot.status, 0) << shot.err;
    EXPECT_EQ(read("recents.png").substr(1, 3), "PNG");
    EXPECT_THAT(shot.out, HasSubstr("\"photo\""));
    const fs::path library = path_ / "phone/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.so";
    ASSERT_TRUE(fs::exists(library));
    std::ifstream installed(path_ / "second/lib/zelkacb/ZelkaCB.so", std::ios::binary);
    std::ifstream onPhone(library, std::ios::binary);
    using Bytes = std::istreambuf_iterator<char>;
    EXPECT_TRUE(std::equal(Bytes(installed), Bytes(), Bytes(onPhone), Bytes()));
}

TEST_F(InstalledPhoneSim, HasNoPathOfTheBuildInIt) {
    for (const char* file : {"bin/phonesim", "libexec/zelkacb/springboard", "libexec/zelkacb/callbar_view_service"}) {
        EXPECT_EQ(shell(std::string("strings -a second/") + file + " | grep -F \"" ZELKA_BUILD "/\"").out, "") << file;
    }
}

TEST_F(InstalledPhoneSim, TakesHostsFromTheEnvironmentFirst) {
    ASSERT_EQ(shell("phonesim new phone").status, 0);
    EXPECT_THAT(shell("PHONESIM_HOSTS=/nowhere phonesim shot phone recents --out a.png").err,
                HasSubstr("/nowhere/callbar_view_service"));
}

TEST_F(InstalledPhoneSim, SaysWhereItLookedForTheLibrary) {
    fs::remove(path_ / "second/lib/zelkacb/ZelkaCB.so");
    const Outcome outcome = shell("phonesim new phone");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr((path_ / "second/lib/zelkacb/ZelkaCB.so").string()));
}

TEST_F(InstalledPhoneSim, CompletesVerbsOptionsAndValues) {
    EXPECT_EQ(offered("phonesim s"), "shot set\n");
    EXPECT_EQ(offered("phonesim --v"), "--version\n");
    EXPECT_EQ(offered("phonesim shot phone mi"), "missed\n");
    EXPECT_EQ(offered("phonesim shot phone recents --p"), "--process\n");
    EXPECT_EQ(offered("phonesim shot phone recents --process \"\""), "callbar springboard\n");
    EXPECT_EQ(offered("phonesim shot phone recents --process = spr"), "springboard\n");
    EXPECT_EQ(offered("phonesim shot phone recents --process callbar --p"), "\n");
    EXPECT_EQ(offered("phonesim set phone ZelkaCBEnabledR"), "ZelkaCBEnabledRoundedPictures ZelkaCBEnabledRecents\n");
    EXPECT_EQ(offered("phonesim get phone ZelkaCBEnabledR"), "ZelkaCBEnabledRoundedPictures ZelkaCBEnabledRecents\n");
    EXPECT_EQ(offered("phonesim call phone 1 m"), "missed\n");
    EXPECT_EQ(offered("phonesim help cl"), "clone\n");
    EXPECT_EQ(offered("phonesim set phone ZelkaCBEnabled o"), "on off\n");
    EXPECT_EQ(offered("phonesim new phone --device iphone6p"), "iphone6plus-8.4 iphone6plus-9.3\n");
    EXPECT_EQ(offered("phonesim dance \"\""), "\n");
}

TEST_F(InstalledPhoneSim, CompletesPaths) {
    fs::create_directories(path_ / "phones/mine");
    write("phones/a.vcf", "");
    EXPECT_EQ(offered("phonesim shot phones/"), "phones/mine\n");
    EXPECT_EQ(offered("phonesim new phone --contacts phones/a"), "phones/a.vcf\n");
}

TEST_F(InstalledPhoneSim, HasAManualPageOfEverythingThatHelpSays) {
    const Outcome page = shell("groff -ww -man -Tascii -P-cbou second/share/man/man1/phonesim.1");
    EXPECT_EQ(page.err, "");
    for (const char* verb :
         {"new", "list", "shot", "run", "log", "get", "set", "notify", "add", "edit", "call", "clone", "help"}) {
        EXPECT_THAT(page.out, HasSubstr(std::string("\nphonesim ") + verb + "\n"));
    }
    EXPECT_THAT(page.out, HasSubstr("--contacts FILE"));
    EXPECT_THAT(page.out, HasSubstr("--process callbar|springboard"));
    EXPECT_THAT(page.out, HasSubstr("phonesim shot phone recents --out recents.png"));
    EXPECT_THAT(page.out, HasSubstr("PHONESIM_HOSTS"));
}

}  // namespace

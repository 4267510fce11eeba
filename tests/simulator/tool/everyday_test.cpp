// The verbs of every day: looking over phones, adding to them, copying and removing them.
#include <signal.h>

#include <nlohmann/json.hpp>

#include "simulator/maker/database/database.h"
#include "tests/simulator/tool/background_tool.h"
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

class EverydayVerbs : public PhoneSim {
  protected:
    json info(const std::string& root) const { return json::parse(run("info " + root + " --json").out); }
    json rows(const std::string& screen) const {
        return json::parse(run("shot phone " + screen + " --row-details --without-extension").out);
    }
    void copyPicture() const {
        fs::copy_file(path_ / "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent.png",
                      path_ / "face.png");
    }
};

TEST_F(EverydayVerbs, ListAndInfoCountWhatIsThere) {
    EXPECT_THAT(run("list").err, HasSubstr("phonesim: there is no phone here"));
    write("calls.csv", "-1h, (212) 555-0142, missed\n-2h, 555 0199, outgoing\n");
    makePhone(" --calls calls.csv --device iphone5s-7.1");
    ASSERT_EQ(run("new other --no-calls").status, 0);
    EXPECT_EQ(run("list").out,
              "PHONE  MODEL      SYSTEM  CONTACTS  CALLS  STATE\n"
              "other  iPhone7,2  8.4     0         0      not running\n"
              "phone  iPhone6,1  7.1.2   2         2      not running\n");
    const json list = json::parse(run("list phone . --json").out);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].at("missed"), 1);
    EXPECT_EQ(list[0].at("favorites"), 1);
    EXPECT_EQ(info("other").at("contacts"), 0);
    EXPECT_THAT(run("info phone").out,
                AllOf(HasSubstr("contacts   2, 0 with a picture\n"), HasSubstr("calls      2, 1 missed\n"),
                      HasSubstr("system     7.1.2\n"), HasSubstr("library    ZelkaCB.so\n")));
    fs::remove(path_ / "phone/private/var/wireless/Library/CallHistory/call_history.db");
    EXPECT_TRUE(info("phone").at("calls").is_null());
    EXPECT_THAT(run("info nothing").err, StartsWith("phonesim: nothing: is not a phone root"));
}

TEST_F(EverydayVerbs, GetPrintsWhatSetWrote) {
    makePhone(" --no-calls");
    EXPECT_EQ(run("get phone ZelkaCBEnabled").out, "unset\n");
    ASSERT_EQ(run("set phone ZelkaCBEnabled on").err, "");
    ASSERT_EQ(run("set phone ZelkaCBEnabledRecents off").err, "");
    EXPECT_EQ(run("get phone ZelkaCBEnabled").out, "on\n");
    EXPECT_THAT(run("get phone").out, AllOf(HasSubstr("ZelkaCBEnabled on\n"), HasSubstr("ZelkaCBEnabledRecents off\n"),
                                            HasSubstr("ZelkaCBEnabledFavorites unset\n")));
    const json all = json::parse(run("get phone --json").out);
    EXPECT_EQ(all.size(), 6u);
    EXPECT_EQ(all.at("ZelkaCBEnabledRecents"), false);
    EXPECT_TRUE(all.at("ZelkaCBEnabledContacts").is_null());
    EXPECT_THAT(run("get phone Wallpaper").err, StartsWith("phonesim: there is no setting \"Wallpaper\""));
}

TEST_F(EverydayVerbs, AddMakesAContactThatListsShow) {
    makePhone(" --no-calls");
    copyPicture();
    const Outcome added = run(
        "add phone --first Zoë --last Öst --number '+46 70 174 06 12' --number 'Boat:612' --email home:z@example.com "
        "--photo face.png");
    EXPECT_EQ(added.err, "");
    EXPECT_EQ(added.out, "phone: Zoë Öst is contact 3\n");
    EXPECT_EQ(info("phone").at("contacts"), 3);
    EXPECT_EQ(info("phone").at("pictures"), 1);
    EXPECT_EQ(rows("contacts").back().at("name"), "Zoë Öst");
    EXPECT_THAT(read("phone/private/var/run/notifications"),
                HasSubstr("__ABDataBaseChangedByOtherProcessNotification"));
    EXPECT_THAT(run("add phone").err, StartsWith("phonesim: nothing to add"));
    EXPECT_THAT(run("add phone --first A --photo c.vcf").err, StartsWith("phonesim: c.vcf: not a picture"));
    EXPECT_EQ(info("phone").at("contacts"), 3);
}

TEST_F(EverydayVerbs, CallsAreOfTheirContact) {
    for (const char* device : {"iphone6-8.4", "iphone5s-7.1"}) {
        makePhone(std::string(" --no-calls --force --device ") + device);
        ASSERT_EQ(run("call phone '+1 212 555 0142' missed --at '2015-06-01 09:41'").err, "");
        ASSERT_EQ(run("call phone '555 0199' outgoing --at '2015-06-01 09:42'").err, "");
        const json shown = rows("recents");
        ASSERT_EQ(shown.size(), 2u) << device;
        EXPECT_EQ(shown[1].at("name"), "Ann Lee");
        EXPECT_EQ(shown[1].at("contact"), 1);
        EXPECT_EQ(rows("missed").size(), 1u);
    }
    EXPECT_THAT(run("call phone 1 missed --seconds 4").err, StartsWith("phonesim: --seconds: a missed call lasts 0"));
    EXPECT_THAT(run("call phone 1 incoming --seconds 0").err, StartsWith("phonesim: --seconds: an incoming call of 0"));
    EXPECT_EQ(run("call phone 1 sideways").status, 2);
}

TEST_F(EverydayVerbs, ACallArrivesInRecentsOfARunningPhone) {
    makePhone(" --no-calls");
    BackgroundTool tool(path_, {"run", "phone", "--process", "callbar"});
    ASSERT_TRUE(tool.waitFor("running;")) << tool.err();
    EXPECT_TRUE(info("phone").at("running"));
    EXPECT_THAT(run("clone phone copy").err, HasSubstr("is being run by process"));
    EXPECT_THAT(run("delete phone").err, HasSubstr("is being run by process"));
    const int before = tool.count("callbar recents: screen changed");
    const std::string picture = read("phone/screens/callbar/recents.png");
    ASSERT_EQ(run("call phone '+1 212 555 0142' missed").err, "");
    ASSERT_TRUE(tool.waitFor("callbar recents: screen changed", before)) << tool.out() << tool.err();
    EXPECT_TRUE(read("phone/screens/callbar/recents.png") != picture);
    tool.end(SIGTERM);
    EXPECT_FALSE(info("phone").at("running"));
}

TEST_F(EverydayVerbs, FavoritesComeAndGo) {
    makePhone(" --no-calls");
    ASSERT_EQ(run("favorite phone 'Ann Lee'").err, "");
    ASSERT_EQ(run("favorite phone 2 --number 612").err, "");
    ASSERT_EQ(run("favorite phone 1 --number 613").err, "");
    EXPECT_EQ(info("phone").at("favorites"), 2);
    EXPECT_EQ(rows("favorites").at(0).at("name"), "Ann Lee");
    EXPECT_THAT(read("phone/private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist"),
                AllOf(HasSubstr("<string>613</string>"), Not(HasSubstr("0142"))));
    ASSERT_EQ(run("favorite phone 1 --remove").err, "");
    EXPECT_EQ(info("phone").at("favorites"), 1);
    EXPECT_THAT(run("favorite phone 1 --remove").err, StartsWith("phonesim: \"1\" is no favourite of phone"));
    ASSERT_EQ(run("add phone --first Nobody").err, "");
    EXPECT_THAT(run("favorite phone Nobody").err, StartsWith("phonesim: \"Nobody\" has no number"));
}

TEST_F(EverydayVerbs, CloneAndDeleteTakeWholePhones) {
    makePhone();
    write("phone/tmp/mine", "mine");
    ASSERT_EQ(run("clone phone deeper/copy").err, "");
    EXPECT_EQ(read("deeper/copy/tmp/mine"), "mine");
    ASSERT_EQ(run("edit deeper/copy 1 --first Anne").err, "");
    EXPECT_EQ(rows("contacts").at(1).at("name"), "Ann Lee");
    EXPECT_THAT(run("clone phone deeper/copy").err, StartsWith("phonesim: deeper/copy: exists already"));
    ASSERT_EQ(run("delete deeper/copy").err, "");
    EXPECT_FALSE(fs::exists(path_ / "deeper/copy"));
    write("letters/letter.txt", "dear");
    EXPECT_THAT(run("delete letters").err, StartsWith("phonesim: letters: is not a phone root"));
    EXPECT_TRUE(fs::exists(path_ / "letters/letter.txt"));
}

TEST_F(EverydayVerbs, ShotWritesTheFormatOfItsName) {
    makePhone(" --no-calls");
    const std::pair<const char*, const char*> begins[] = {
        {"a.jpg", "\xFF\xD8\xFF"}, {"a.webp", "RIFF"}, {"a.png", "\x89PNG"}};
    for (const auto& [name, start] : begins) {
        ASSERT_EQ(run(std::string("shot phone recents --out ") + name).err, "") << name;
        EXPECT_THAT(read(name), StartsWith(start));
    }
    EXPECT_THAT(read("a.webp").substr(8), StartsWith("WEBP"));
    const Outcome piped = run("shot phone recents --out -");
    EXPECT_EQ(piped.err, "");
    EXPECT_TRUE(piped.out == read("a.png"));
    EXPECT_THAT(run("shot phone recents --out a.gif").err, StartsWith("phonesim: a.gif: a picture's name ends in"));
    EXPECT_FALSE(fs::exists(path_ / "a.gif"));
}

TEST_F(EverydayVerbs, LogIsFilteredAndFollowed) {
    makePhone(" --no-calls");
    write(
        "phone/tmp/ZelkaCB.log",
        "2015-06-01 09:41:00.123 one[1:2] first\nwithout a date\n2015-06-01 09:42:00.123 one[1:2] second\nits rest\n");
    EXPECT_EQ(run("log phone --grep second").out, "2015-06-01 09:42:00.123 one[1:2] second\n");
    EXPECT_EQ(run("log phone --since '2015-06-01 09:41:30'").out,
              "2015-06-01 09:42:00.123 one[1:2] second\nits rest\n");
    EXPECT_EQ(run("log phone --since 10m").out, "");
    EXPECT_THAT(run("log phone --since yesterday").err, StartsWith("phonesim: --since: \"yesterday\" is neither"));
    BackgroundTool tool(path_, {"log", "phone", "-f", "--grep", "s"});
    ASSERT_TRUE(tool.waitFor("its rest"));
    std::ofstream(path_ / "phone/tmp/ZelkaCB.log", std::ios::app) << "later still\n";
    EXPECT_TRUE(tool.waitFor("later still"));
    EXPECT_EQ(tool.end(SIGTERM), 0);
}

TEST_F(EverydayVerbs, HelpIsThatOfTheVerb) {
    EXPECT_EQ(run("help new").out, run("new --help").out);
    EXPECT_EQ(run("help").out, run("--help").out);
    const Outcome unknown = run("help dance");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.err, StartsWith("phonesim: there is no verb \"dance\""));
}

TEST_F(EverydayVerbs, EveryMessageSaysWhoSpeaks) {
    makePhone(" --no-calls");
    for (const char* arguments : {"", "dance", "new", "new phone --dance", "set phone ZelkaCBEnabled maybe",
                                  "shot phone", "new p --contacts gone.vcf", "edit phone 9 --no-photo",
                                  "call phone 1 sideways", "new p --contacts-count many"}) {
        const Outcome outcome = run(arguments);
        EXPECT_NE(outcome.status, 0) << arguments;
        std::istringstream lines(outcome.err);
        std::string line;
        ASSERT_TRUE(std::getline(lines, line)) << arguments;
        EXPECT_THAT(line, StartsWith("phonesim: ")) << arguments;
    }
}

TEST_F(EverydayVerbs, NewCountsWhatItLeavesOutAndTellsAllWhenAsked) {
    std::string cards;
    for (int i = 0; i < 3; ++i)
        cards += "BEGIN:VCARD\nN:;A" + std::to_string(i) + ";;;\nPHOTO;VALUE=uri:gone.png\nEND:VCARD\n";
    write("c.vcf", cards);
    EXPECT_THAT(run("new phone --contacts c.vcf").err,
                testing::MatchesRegex("phonesim: c.vcf, line 1: A0 goes without photo: [^\n]*; and 2 more like it "
                                      "\\(--verbose lists them\\)\n"));
    const std::string all = run("new phone --force --verbose --contacts c.vcf").err;
    for (const char* line : {"line 1: A0", "line 5: A1", "line 9: A2"}) EXPECT_THAT(all, HasSubstr(line));
}

}  // namespace

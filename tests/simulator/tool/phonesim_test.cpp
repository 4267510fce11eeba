// The command line as a user meets it: the program is run, its output and exit status are looked at.
#include <stdio.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <thread>
#include <vector>

#include "simulator/maker/database/database.h"
#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

namespace fs = std::filesystem;

constexpr const char* kLibrary = "phone/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.so";

class PhoneSimVerbs : public PhoneSim {
  protected:
    // A query's rows as lines, columns parted by "|".
    std::string sql(const std::string& database, const char* statement) const {
        fs::path file = path_ / "phone/private/var/mobile/Library/AddressBook" / database;
        maker::Database opened = maker::Database::openToRead(file).value();
        maker::Statement rows = opened.prepare(statement);
        std::string result;
        while (rows.step()) {
            for (int column = 0; column < rows.columns(); ++column) result += (column ? "|" : "") + rows.text(column);
            result += "\n";
        }
        EXPECT_EQ(phone::problemOf(rows.status()), "");
        return result;
    }
    std::string posted() const { return read("phone/private/var/run/notifications"); }
    std::string settings() const {
        return read("phone/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist");
    }
};

TEST_F(PhoneSimVerbs, EveryVerbHasHelpWithExamples) {
    for (const char* verb : {"new", "list", "info", "shot", "run", "log", "get", "set", "notify", "add", "edit",
                             "favorite", "call", "install", "clone", "delete", "help"}) {
        Outcome help = run(std::string(verb) + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.out, AllOf(HasSubstr("Example"), HasSubstr(std::string("phonesim ") + verb))) << verb;
        EXPECT_EQ(help.err, "");
    }
    EXPECT_THAT(run("--help").out, HasSubstr("Exit status"));
}

TEST_F(PhoneSimVerbs, MisuseIsToldAndExitsWithTwo) {
    for (const char* arguments : {"",
                                  "dance",
                                  "new",
                                  "new phone --dance",
                                  "new phone --contacts-count 0",
                                  "new phone --contacts-count many",
                                  "new phone --contacts a --contacts-count 3",
                                  "new phone --images a",
                                  "shot phone",
                                  "shot phone wallpaper --out a",
                                  "shot phone settings/ --out a",
                                  "shot phone settings/a/b --out a",
                                  "shot phone recents --process clock",
                                  "run",
                                  "run phone --process clock",
                                  "run phone --interval 0",
                                  "run phone --timeout 0",
                                  "shot phone recents --out a --process 1",
                                  "set phone ZelkaCBEnabled maybe",
                                  "edit phone 1 --photo a --no-photo",
                                  "edit phone 1 --delete --first A",
                                  "log"}) {
        Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_NE(outcome.err, "") << arguments;
    }
    EXPECT_FALSE(fs::exists(path_ / "phone"));
}

TEST_F(PhoneSimVerbs, MisuseIsToldInWordsThatHelp) {
    EXPECT_THAT(run("dance").err, AllOf(HasSubstr("there is no verb \"dance\""), HasSubstr("new, list, info")));
    EXPECT_THAT(run("shot phone recents --timeout 0").err, HasSubstr("--timeout: Value 0 not in range 0.001"));
    EXPECT_THAT(run("shot --help").out, HasSubstr("{callbar,springboard}"));
    EXPECT_EQ(run("--version").out, "phonesim " ZELKA_VERSION "\n");
}

TEST_F(PhoneSimVerbs, NewMakesAPhoneAndSaysWhatIsOnIt) {
    write("c.vcf", "BEGIN:VCARD\nN:Lee;Ann;;;\nTEL:1\nPHOTO;VALUE=uri:file:gone.jpg\nEND:VCARD\n");
    write("calls.csv", "-1h, 1, missed\n");
    Outcome made = run("new phone --contacts c.vcf --calls calls.csv");
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.out, "phone: 1 contact, 0 with a picture, 1 call\n");
    EXPECT_THAT(made.err, HasSubstr("Ann Lee goes without photo"));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(path_ / kLibrary)));
    EXPECT_THAT(read("phone/Library/MobileSubstrate/DynamicLibraries/ZelkaCB.plist"),
                HasSubstr("net.vantrel.callbarviewservice"));
    for (const char* file : {"recent.png", "recent@2x.png", "recent@3x.png"}) {
        EXPECT_TRUE(fs::exists(path_ / "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle" / file)) << file;
    }
}

TEST_F(PhoneSimVerbs, NewTellsHowFarLongWorkIs) {
    Outcome made = run("new phone --contacts-count 10000");
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.err, "contacts: 10000 of 10000\n");
}

TEST_F(PhoneSimVerbs, NewThatFailsExitsWithOneAndLeavesThePhone) {
    makePhone();
    write("phone/tmp/mine", "mine");
    for (const char* arguments :
         {"new phone", "new phone --force --contacts gone.vcf", "new phone --force --address-book c.vcf",
          "new phone --force --device nokia", "new phone --force --region Texas",
          "new phone --force --language \"High Valyrian\""}) {
        Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_THAT(outcome.err, testing::StartsWith("phonesim: ")) << arguments;
    }
    EXPECT_EQ(read("phone/tmp/mine"), "mine");
}

TEST_F(PhoneSimVerbs, NewSaysHowAPhoneIsReplaced) {
    makePhone();
    EXPECT_THAT(run("new phone").err, HasSubstr("is a phone root already; --force replaces it"));
}

TEST_F(PhoneSimVerbs, NewTakesALibraryOfAnyNameAndRefusesWhatIsNone) {
    for (const char* library : {"nope.so", "."}) {
        Outcome outcome = run(std::string("new phone --no-calls --library ") + library);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, AllOf(HasSubstr(library), testing::Not(HasSubstr("build"))));
    }
    makePhone(" --no-calls");
    fs::copy_file(path_ / kLibrary, path_ / "mine.so");
    ASSERT_EQ(run("new phone --force --no-calls --library mine.so").err, "");
    EXPECT_EQ(run("shot phone recents --out a.png").err, "");
}

// Bytes behind an ELF file's end change nothing of what it loads.
TEST_F(PhoneSimVerbs, ShotSaysWhichCommandRenewsAnOlderLibrary) {
    makePhone(" --no-calls");
    const fs::file_time_type longAgo = fs::file_time_type::clock::now() - std::chrono::hours(24 * 365);
    fs::last_write_time(path_ / kLibrary, longAgo);
    EXPECT_EQ(run("shot phone recents --out a.png").err, "") << "old, but the same";

    std::ofstream(path_ / kLibrary, std::ios::binary | std::ios::app) << "another build";
    EXPECT_EQ(run("shot phone recents --out a.png").err, "") << "another, but newer";
    fs::last_write_time(path_ / kLibrary, longAgo);
    const std::string file = (path_ / kLibrary).string();
    EXPECT_THAT(
        run("shot phone recents --out a.png").err,
        AllOf(testing::StartsWith("phonesim: " + file + ": is older than "),
              testing::EndsWith("ZelkaCB.so; \"phonesim install " + (path_ / "phone").string() + "\" renews it\n")));
    EXPECT_EQ(run("shot phone recents --out a.png --without-extension").err, "");

    EXPECT_EQ(run("install phone").status, 0);
    EXPECT_EQ(run("shot phone recents --out a.png").err, "");
}

TEST_F(PhoneSimVerbs, InstallReplacesTheLibraryOfEitherFormatAndNothingElse) {
    EXPECT_THAT(run("install phone").err, HasSubstr("is not a phone root"));
    makePhone(" --no-calls");
    const std::string book = sql("AddressBook.sqlitedb", "SELECT * FROM ABPerson");
    const std::string built = read(kLibrary);
    const std::string phones = fs::path(kLibrary).replace_extension(".dylib");
    write("phones.dylib", "the phone's own format");
    ASSERT_EQ(run("install phone --library phones.dylib").err, "");
    EXPECT_EQ(read(phones), "the phone's own format");
    EXPECT_FALSE(fs::exists(path_ / kLibrary));
    const Outcome installed = run("install phone");
    EXPECT_EQ(installed.err, "");
    EXPECT_THAT(installed.out, AllOf(testing::StartsWith("phone: "), testing::EndsWith("ZelkaCB.so is installed\n")));
    EXPECT_TRUE(read(kLibrary) == built);
    EXPECT_FALSE(fs::exists(path_ / phones));
    EXPECT_EQ(sql("AddressBook.sqlitedb", "SELECT * FROM ABPerson"), book);
    EXPECT_THAT(run("install phone --library gone.so").err, HasSubstr("gone.so: there is no such file"));
    EXPECT_TRUE(read(kLibrary) == built);
}

TEST_F(PhoneSimVerbs, LogSaysWhenNothingIsLoggedYetAndPrintsTheLog) {
    EXPECT_THAT(run("log phone").err, HasSubstr("is not a phone root"));
    makePhone();
    Outcome none = run("log phone");
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.err, HasSubstr("nothing is logged yet"));
    write("phone/tmp/ZelkaCB.log", "one\ntwo\n");
    Outcome log = run("log phone");
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(log.out, "one\ntwo\n");
}

TEST_F(PhoneSimVerbs, SetWritesTheSwitchKeepsOtherKeysAndPosts) {
    makePhone();
    write("phone/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist",
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>Other</key>"
          "<string>kept</string></dict></plist>");
    ASSERT_EQ(run("set phone ZelkaCBEnabledRoundedPictures on").err, "");
    ASSERT_EQ(run("set phone ZelkaCBEnabledRecents off").err, "");
    std::string flat = settings();
    flat.erase(std::remove_if(flat.begin(), flat.end(), [](unsigned char c) { return std::isspace(c); }), flat.end());
    EXPECT_THAT(flat, AllOf(HasSubstr("<key>Other</key><string>kept</string>"),
                            HasSubstr("<key>ZelkaCBEnabledRoundedPictures</key><true/>"),
                            HasSubstr("<key>ZelkaCBEnabledRecents</key><false/>")));
    EXPECT_THAT(posted(), AllOf(HasSubstr("com.norvex.ZelkaCBRoundedPicturesEnabledNotification"),
                                HasSubstr("com.norvex.ZelkaCBRecentsEnabledNotification")));
}

TEST_F(PhoneSimVerbs, SetsAtTheSameTimeAreAllKept) {
    makePhone(" --no-calls");
    const std::string keys[] = {
        "ZelkaCBEnabled",          "ZelkaCBEnabledRoundedPictures", "ZelkaCBEnabledMonogramPictures",
        "ZelkaCBEnabledFavorites", "ZelkaCBEnabledRecents",         "ZelkaCBEnabledContacts"};
    std::vector<std::thread> terminals;
    for (const std::string& key : keys) {
        terminals.emplace_back([this, &key] {
            const std::string command = "'" PHONESIM "' set '" + (path_ / "phone").string() + "' " + key + " off";
            EXPECT_EQ(system(command.c_str()), 0);
        });
    }
    for (std::thread& terminal : terminals) terminal.join();
    for (const std::string& key : keys) EXPECT_THAT(settings(), HasSubstr("<key>" + key + "</key>"));
}

TEST_F(PhoneSimVerbs, SetRefusesAFolderInTheSettingsPlaceInOneLine) {
    makePhone(" --no-calls");
    fs::create_directory(path_ / "phone/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist");
    Outcome outcome = run("set phone ZelkaCBEnabled on");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, testing::MatchesRegex("phonesim: [^\n]*is no property list with settings[^\n]*\n"));
}

TEST_F(PhoneSimVerbs, SetMakesTheSettingsFileWhenThereIsNone) {
    makePhone();
    EXPECT_EQ(run("set phone ZelkaCBEnabled off").status, 0);
    EXPECT_THAT(settings(), HasSubstr("<key>ZelkaCBEnabled</key>"));
}

TEST_F(PhoneSimVerbs, SetRefusesUnknownKeysListingTheSix) {
    makePhone();
    Outcome outcome = run("set phone ZelkaCBEnabledWallpaper on");
    EXPECT_EQ(outcome.status, 1);
    for (const char* key : {"ZelkaCBEnabled\n", "ZelkaCBEnabledRoundedPictures\n", "ZelkaCBEnabledMonogramPictures\n",
                            "ZelkaCBEnabledFavorites\n", "ZelkaCBEnabledRecents\n", "ZelkaCBEnabledContacts\n"}) {
        EXPECT_THAT(outcome.err, HasSubstr(key));
    }
    EXPECT_EQ(posted(), "");
}

TEST_F(PhoneSimVerbs, SetLeavesASettingsFileThatItCannotRead) {
    makePhone();
    for (const char* garbage : {"garbage \x01\x02", "", "<plist><array/></plist>"}) {
        write("phone/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist", garbage);
        Outcome outcome = run("set phone ZelkaCBEnabled on");
        EXPECT_EQ(outcome.status, 1) << garbage;
        EXPECT_THAT(outcome.err, HasSubstr("is no property list with settings"));
        EXPECT_EQ(settings(), garbage);
    }
    EXPECT_EQ(posted(), "");
}

TEST_F(PhoneSimVerbs, NotifyPostsAnyName) {
    makePhone();
    EXPECT_EQ(run("notify phone some.name").status, 0);
    EXPECT_THAT(posted(), HasSubstr("some.name"));
    EXPECT_EQ(run("notify phone ''").status, 1);
}

TEST_F(PhoneSimVerbs, EditRenamesAndMakesTheContactTheLatestModified) {
    makePhone();
    ASSERT_EQ(run("edit phone 'Ann Lee' --first Anne").err, "");
    EXPECT_EQ(sql("AddressBook.sqlitedb", "SELECT First, Last FROM ABPerson WHERE ROWID = 1"), "Anne|Lee\n");
    ASSERT_EQ(run("edit phone 2 --last Berg").err, "");
    EXPECT_EQ(sql("AddressBook.sqlitedb", "SELECT First, Last FROM ABPerson WHERE ROWID = 2"), "Bo|Berg\n");
    EXPECT_EQ(sql("AddressBook.sqlitedb",
                  "SELECT ROWID FROM ABPerson WHERE ModificationDate = (SELECT max(ModificationDate) FROM ABPerson)"),
              "2\n");
    EXPECT_THAT(posted(), HasSubstr("__ABDataBaseChangedByOtherProcessNotification"));
}

TEST_F(PhoneSimVerbs, EditGivesAndTakesPhotos) {
    makePhone();
    fs::copy_file(path_ / "phone/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent.png",
                  path_ / "face.png");
    ASSERT_EQ(run("edit phone 1 --photo face.png").err, "");
    EXPECT_EQ(sql("AddressBookImages.sqlitedb", "SELECT record_id, format FROM ABThumbnailImage"), "1|0\n");
    Outcome broken = run("edit phone 1 --photo c.vcf");
    EXPECT_EQ(broken.status, 1);
    EXPECT_THAT(broken.err, HasSubstr("c.vcf: not a picture"));
    EXPECT_EQ(sql("AddressBookImages.sqlitedb", "SELECT count(*) FROM ABThumbnailImage"), "1\n");
    ASSERT_EQ(run("edit phone 1 --no-photo").err, "");
    EXPECT_EQ(sql("AddressBookImages.sqlitedb", "SELECT count(*) FROM ABThumbnailImage"), "0\n");
}

TEST_F(PhoneSimVerbs, EditRemovesContacts) {
    makePhone();
    ASSERT_EQ(run("edit phone 1 --delete").err, "");
    EXPECT_EQ(sql("AddressBook.sqlitedb", "SELECT ROWID FROM ABPerson"), "2\n");
}

TEST_F(PhoneSimVerbs, EditSaysWhomItCannotFind) {
    makePhone();
    EXPECT_THAT(run("edit phone 9 --no-photo").err, HasSubstr("there is no contact \"9\""));
    EXPECT_THAT(run("edit phone 1").err, HasSubstr("nothing to change"));
    ASSERT_EQ(run("edit phone 1 --first Bo --last ''").err, "");
    EXPECT_THAT(run("edit phone Bo --no-photo").err, HasSubstr("several contacts are \"Bo\": give one of the IDs 1 2"));
    EXPECT_EQ(run("edit phone Bo --no-photo").status, 1);
}

TEST_F(PhoneSimVerbs, ShotSaysWhatItNeeds) {
    EXPECT_THAT(run("shot phone recents --out a.png").err, HasSubstr("is not a phone root"));
    makePhone();
    EXPECT_THAT(run("shot phone recents").err, HasSubstr("give --out"));
    EXPECT_THAT(run("shot phone search --out a.png").err, HasSubstr("needs a TEXT"));
    EXPECT_THAT(run("shot phone recents Ann --out a.png").err, HasSubstr("the others take none"));
    EXPECT_THAT(run("shot phone recents --out no/such/a.png").err, HasSubstr("there is no such folder"));
}

TEST_F(PhoneSimVerbs, ShotReplacesFilesOnly) {
    makePhone(" --no-calls");
    fs::create_directory(path_ / "folder");
    EXPECT_THAT(run("shot phone recents --out folder").err, HasSubstr("folder: is a folder"));
    ASSERT_EQ(mkfifo((path_ / "pipe").c_str(), 0600), 0);
    for (const char* device : {"pipe", "/dev/null"}) {
        Outcome outcome = run(std::string("shot phone recents --out ") + device);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, HasSubstr(std::string(device) + ": is no file that a picture could replace"));
        EXPECT_TRUE(fs::is_other(path_ / device));
    }
    write("old.png", "old");
    fs::create_symlink("old.png", path_ / "link.png");
    EXPECT_EQ(run("shot phone recents --out link.png --without-extension").err, "");
    EXPECT_TRUE(fs::is_symlink(path_ / "link.png"));
    EXPECT_EQ(read("old.png").substr(1, 3), "PNG");
}

TEST_F(PhoneSimVerbs, ShotNamesAPictureThatCannotBeWrittenOnce) {
    makePhone(" --no-calls");
    // Where root may not write either.
    Outcome outcome = run("shot phone recents --out /sys/a.png --without-extension");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, testing::MatchesRegex("phonesim: callbar_view_service: /sys/a.png: [A-Za-z -]+\n"));
}

TEST_F(PhoneSimVerbs, ShotDrawsAScreenAndPrintsItsRows) {
    makePhone();
    for (const char* process : {"callbar", "springboard"}) {
        Outcome shot = run(std::string("shot phone recents --out a.png --row-details --process ") + process);
        ASSERT_EQ(shot.status, 0) << shot.err;
        EXPECT_EQ(read("a.png").substr(1, 3), "PNG");
        EXPECT_EQ(shot.out.front(), '[');
        fs::remove(path_ / "a.png");
    }
    EXPECT_EQ(run("shot phone missed --out b.png --without-extension").status, 0);
    EXPECT_TRUE(fs::exists(path_ / "b.png"));
    for (const auto& entry : fs::directory_iterator(path_)) {
        EXPECT_THAT(entry.path().string(), testing::Not(HasSubstr(".part")));
    }
}

TEST_F(PhoneSimVerbs, ShotDrawsPagesOfTheSettingsApp) {
    makePhone(" --language de");
    Outcome first = run("shot phone settings --out a.png --row-details");
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(read("a.png").substr(1, 3), "PNG");
    EXPECT_THAT(first.out, HasSubstr("\"title\": \"Einstellungen\""));
    EXPECT_THAT(first.out, HasSubstr("\"label\": \"ZelkaCB\""));
    EXPECT_EQ(run("shot phone settings/zelkacb --out b.png").status, 0);
    EXPECT_TRUE(read("a.png") != read("b.png"));
    EXPECT_THAT(run("shot phone settings/clock --out c.png").err, HasSubstr("has no entry \"clock\""));
    EXPECT_THAT(run("shot phone settings --editing --out c.png").err, HasSubstr("no editing mode"));
}

}  // namespace

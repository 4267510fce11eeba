// A process that loads the library and is not served: everything stays as the host made it.
#include "tests/phone/other_process.h"

#include <gmock/gmock.h>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

class OtherProcesses : public PhoneTest {
  protected:
    // A phone on which the library is loaded into the Contacts application as well, and settings that are on.
    void makeWidePhone() {
        makePhone();
        loadInto(kOtherIdentifier);
        set("ZelkaCBEnabledRoundedPictures", false);
    }
};

TEST_F(OtherProcesses, ListAndGeneratorAreTheSystems) {
    makeWidePhone();
    OtherProcess plain(options(), false);
    OtherProcess loaded(options(), true);
    EXPECT_EQ(plain.libraries(), 0u);
    EXPECT_EQ(loaded.libraries(), 1u);
    const Json rows = loaded.rows();
    EXPECT_GT(rows.size(), 5u);
    EXPECT_EQ(rows, plain.rows());
    for (const Json& row : rows) EXPECT_EQ(row.at("hasPictureView"), false);
    for (const int contact : {int{kAnn}, int{kBob}, 4711})
        EXPECT_EQ(loaded.monograms(contact), plain.monograms(contact));
}

TEST_F(OtherProcesses, NotificationsChangeNothing) {
    makeWidePhone();
    OtherProcess loaded(options(), true);
    const Json before = loaded.rows();
    for (const auto& [key, on] : std::map<std::string, bool>(switches_)) set(key, !on);
    edit(kAnn, [](auto& book) { must(book.setThumbnail(kAnn, picture(kPurple))); });
    EXPECT_EQ(loaded.rows(), before);
    EXPECT_TRUE(loaded.running());
}

TEST_F(OtherProcesses, NeitherLogNorSettingsFileAreTouched) {
    makePhone();
    loadInto(kOtherIdentifier);
    OtherProcess loaded(options(), true);
    loaded.rows();
    EXPECT_FALSE(std::filesystem::exists(host("private/var/tmp/ZelkaCB.log")));
    EXPECT_FALSE(std::filesystem::exists(host(kSettingsFile)));
}

TEST_F(OtherProcesses, AnIdentifierInOtherLettersIsNotServed) {
    makePhone();
    loadInto("com.apple.Springboard");
    OtherProcess loaded(optionsAs("com.apple.Springboard"), true);
    EXPECT_EQ(loaded.libraries(), 1u);
    for (const Json& row : loaded.rows()) EXPECT_EQ(row.at("hasPictureView"), false);
    EXPECT_FALSE(std::filesystem::exists(host("private/var/tmp/ZelkaCB.log")));
}

TEST_F(OtherProcesses, TheContactsListOfAServedProcessHasPictures) {
    makePhone();
    OtherProcess served(optionsAs("com.apple.springboard"), true);
    for (const Json& row : served.rows()) EXPECT_EQ(row.at("hasPictureView"), true);
}

// Where Darwin notifications are delivered: the list is reloaded on the main thread and waited for in either case.
class Delivery : public PhoneTest, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Threads, Delivery, testing::Values("main", "watcher"), test::ParameterName());

TEST_P(Delivery, ReloadsTheContactsListOnTheMainThread) {
    makePhone();
    hosts::HostOptions served = optionsAs("com.apple.springboard");
    served.environment.emplace_back("PHONESIM_NOTIFICATIONS", GetParam());
    OtherProcess process(served, true);
    for (const Json& row : process.rows()) EXPECT_EQ(row.at("hasPictureView"), true);
    for (int i = 0; i < 5; ++i) {
        set("ZelkaCBEnabledContacts", false);
        for (const Json& row : process.rows()) EXPECT_EQ(row.at("hasPictureView"), false);
        set("ZelkaCBEnabledContacts", true);
        for (const Json& row : process.rows()) EXPECT_EQ(row.at("hasPictureView"), true);
    }
    EXPECT_EQ(count(log(), "Got 'com.norvex.ZelkaCBContactsEnabledNotification' notification..."), 10);
}

}  // namespace
}  // namespace test

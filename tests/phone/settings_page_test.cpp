// The switches of the settings page, flipped in the Settings app while the other processes show their lists; and those
// of a plain list, which on newer systems come too late.
#include <gmock/gmock.h>

#include <memory>

#include "simulator/runtime/process/device.h"
#include "tests/phone/phone_test.h"
#include "tests/support/library_path.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

struct Switch {
    const char *label, *key, *notification;
};
constexpr Switch kRound = {"Round", "ZelkaCBEnabledRoundedPictures",
                           "com.norvex.ZelkaCBRoundedPicturesEnabledNotification"};
constexpr Switch kMaster = {"Enabled", "ZelkaCBEnabled", "com.norvex.ZelkaCBEnabledNotification"};
constexpr Switch kInitials = {"Initials", "ZelkaCBEnabledMonogramPictures",
                              "com.norvex.ZelkaCBMonogramPicturesEnabledNotification"};
constexpr Switch kRecentsList = {"Recents", "ZelkaCBEnabledRecents", "com.norvex.ZelkaCBRecentsEnabledNotification"};
constexpr Switch kSwitches[] = {
    kMaster,      kRound,
    kInitials,    {"Favorites", "ZelkaCBEnabledFavorites", "com.norvex.ZelkaCBFavoritesEnabledNotification"},
    kRecentsList, {"Contacts", "ZelkaCBEnabledContacts", "com.norvex.ZelkaCBContactsEnabledNotification"}};

// The service of these phones writes when it is told to, and by itself never.
constexpr const char* kNever = "100000";

class SettingsPage : public PhoneTest {
  protected:
    void makePhoneWithSettings(bool service) {
        makePhone(service ? "iphone6-8.4" : "iphone5s-7.1");
        phone::Device device = phone::readDevice(root_).value();
        device.preferencesService = service;
        must(phone::writeDevice(root_, device));
        write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
              "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key><integer>2</integer></dict>"
              "<dict><key>ABUid</key><integer>1</integer></dict></array></plist>");
    }

    // In the format of the library under test.
    void installPage() const {
        const std::filesystem::path library = libraryPath();
        if (library.extension() != ".dylib") return;
        const std::filesystem::path twin =
            library.parent_path().parent_path() / "ZelkaCBSettings_macho" / "ZelkaCBSettings";
        std::filesystem::copy_file(twin,
                                   root_ / "System/Library/PreferenceBundles/ZelkaCBSettings.bundle/ZelkaCBSettings",
                                   std::filesystem::copy_options::overwrite_existing);
    }

    // As the package had it before there was a page.
    void installPlainList() const {
        std::string items;
        for (const Switch& each : kSwitches) {
            items += std::string("<dict><key>cell</key><string>PSSwitchCell</string><key>label</key><string>") +
                     each.label + "</string><key>key</key><string>" + each.key +
                     "</string><key>defaults</key><string>com.norvex.ZelkaCB</string><key>default</key><true/>" +
                     "<key>PostNotification</key><string>" + each.notification + "</string></dict>";
        }
        write("Library/PreferenceLoader/Preferences/ZelkaCB.plist",
              "<?xml version=\"1.0\"?><plist "
              "version=\"1.0\"><dict><key>entry</key><dict><key>cell</key><string>PSLinkCell</string>"
              "<key>label</key><string>ZelkaCB</string></dict><key>items</key><array>" +
                  items + "</array></dict></plist>");
    }

    void startAll(const std::string& screen) {
        hosts::HostOptions started = options();
        started.environment.emplace_back("PHONESIM_SECOND", kNever);
        screen_ = screen;
        shell_ = std::make_unique<HostProcess>(HostKind::springBoard, options());
        service_ = std::make_unique<HostProcess>(HostKind::callBarViewService, options());
        show(*shell_, screen);
        show(*service_, screen);
        settings_ = std::make_unique<HostProcess>(HostKind::preferences, started);
        settings_->call({{"do", "show"}, {"screen", "settings/zelkacb"}});
    }

    Json shownBy(HostProcess& host) const { return screen_ == "favorites" ? favorites(host) : rows(host); }

    // Flips the switch, and returns what the two processes show at the end of the turn that told them, first the
    // shell's: {"rows", "buttons"}.
    std::pair<Json, Json> flip(const Switch& flipped) {
        for (HostProcess* host : {shell_.get(), service_.get()})
            host->call({{"do", "expect"}, {"notification", flipped.notification}});
        state_[flipped.key] = settings_->call({{"do", "flip"}, {"label", flipped.label}}).at("on");
        const Json await = {{"do", "await"}, {"timeout", 20}};
        Json ofShell = shell_->call(await);
        return {std::move(ofShell), service_->call(await)};
    }

    bool isOn(const std::string& key) const {
        const auto found = state_.find(key);
        return found == state_.end() || found->second;
    }

    std::string screen_;
    std::unique_ptr<HostProcess> shell_, service_, settings_;
    std::map<std::string, bool> state_;  // what the switches on the page show; those that are missing, on
};

// What the lists are to show by the switches.
class PageState {
  public:
    explicit PageState(const std::map<std::string, bool>& state) : state_(state) {}

    void expectRows(const Json& rows, const std::string& screen, bool withSources) const {
        const bool wanted = on("") && on(screen == "recents" ? "Recents" : "Contacts");
        ASSERT_FALSE(rows.empty());
        for (const Json& row : rows) {
            EXPECT_EQ(row.at("hasPictureView"), wanted) << row;
            if (wanted) EXPECT_EQ(row.at("picture").at("corner"), on("RoundedPictures") ? 0 : 255) << row;
        }
        if (!wanted || !withSources) return;
        EXPECT_EQ(sourceOf(rowOf(rows, kAnn)), "photo");
        EXPECT_EQ(sourceOf(rowOf(rows, kBob)), on("MonogramPictures") ? "monogram" : "default");
    }

    // Bob's, then Ann's.
    void expectFavorites(const Json& buttons, bool inShell) const {
        ASSERT_EQ(buttons.size(), 2u);
        const bool drawn = inShell && on("") && on("Favorites") && !on("RoundedPictures");
        const int corner = drawn ? 255 : 0;
        EXPECT_EQ(buttons[0].at("picture").at("corner"), corner) << buttons[0];
        EXPECT_EQ(buttons[1].at("picture").at("corner"), corner) << buttons[1];
    }

  private:
    bool on(const std::string& stem) const {
        const auto found = state_.find("ZelkaCBEnabled" + stem);
        return found == state_.end() || found->second;
    }
    const std::map<std::string, bool>& state_;
};

struct Way {
    const char* screen;
    bool service;

    friend void PrintTo(const Way& way, std::ostream* out) {
        *out << way.screen << (way.service ? "WithAService" : "WithoutAService");
    }
};

class EverySwitch : public SettingsPage, public testing::WithParamInterface<Way> {
  protected:
    void flipAndLook(const Switch& flipped) {
        const auto [ofShell, ofService] = flip(flipped);
        SCOPED_TRACE(std::string(flipped.label) + (isOn(flipped.key) ? " on" : " off"));
        const PageState state(state_);
        if (screen_ == "favorites") {
            state.expectFavorites(ofShell.at("buttons"), true);
            state.expectFavorites(ofService.at("buttons"), false);
            state.expectFavorites(shownBy(*shell_), true);
            return;
        }
        state.expectRows(ofShell.at("rows"), screen_, false);
        state.expectRows(ofService.at("rows"), screen_, false);
        state.expectRows(shownBy(*shell_), screen_, true);
        state.expectRows(shownBy(*service_), screen_, true);
    }
};

INSTANTIATE_TEST_SUITE_P(Ways, EverySwitch,
                         testing::Values(Way{"recents", false}, Way{"recents", true}, Way{"favorites", false},
                                         Way{"favorites", true}, Way{"contacts", false}, Way{"contacts", true}),
                         test::ParameterName());

TEST_P(EverySwitch, RedrawsTheListsWithTheTurnThatBringsItsNotification) {
    makePhoneWithSettings(GetParam().service);
    installPage();
    startAll(GetParam().screen);
    // The library draws favourites only while pictures are square.
    if (screen_ == "favorites") flipAndLook(kRound);
    for (const Switch& each : kSwitches) {
        flipAndLook(each);
        flipAndLook(each);
    }
}

TEST_F(SettingsPage, NothingWritesAnOlderValueLater) {
    makePhoneWithSettings(true);
    installPage();
    startAll("recents");
    flip(kInitials);
    const std::string written = read(kSettingsFile);
    settings_->call({{"do", "synchronize"}});
    EXPECT_EQ(settings_->quit(), 0);
    EXPECT_EQ(read(kSettingsFile), written);
}

TEST_F(SettingsPage, APlainListActsAtOnceWhereTheFileIsWrittenFirst) {
    makePhoneWithSettings(false);
    installPlainList();
    startAll("recents");
    for (const Switch& each : {kMaster, kRound, kInitials, kRecentsList}) {
        flip(each);
        PageState(state_).expectRows(shownBy(*service_), screen_, true);
        flip(each);
        PageState(state_).expectRows(shownBy(*service_), screen_, true);
    }
}

// The fault that the page is there to mend.
TEST_F(SettingsPage, APlainListsSwitchesAreOneFlipBehindWhereAServiceWritesTheFile) {
    makePhoneWithSettings(true);
    installPlainList();
    startAll("recents");
    for (const Switch& each : {kMaster, kRound, kInitials, kRecentsList}) {
        SCOPED_TRACE(each.label);
        const std::map<std::string, bool> before = state_;
        flip(each);
        EXPECT_FALSE(isOn(each.key));
        PageState(before).expectRows(shownBy(*service_), screen_, true);
        settings_->call({{"do", "synchronize"}});
        const std::map<std::string, bool> between = state_;
        flip(each);
        EXPECT_TRUE(isOn(each.key));
        PageState(between).expectRows(shownBy(*service_), screen_, true);
        settings_->call({{"do", "synchronize"}});
        post(each.notification);
        PageState(state_).expectRows(shownBy(*service_), screen_, true);
    }
}

}  // namespace
}  // namespace test

#include "tests/simulator/preferences/settings_fixture.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "simulator/maker/install/install.h"

namespace {

constexpr const char* kEntries = "Library/PreferenceLoader/Preferences/";
constexpr const char* kBundle = "Library/PreferenceBundles/TestPage.bundle/";

std::string list(const std::string& contents) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + contents + "</plist>\n";
}

// What Page.plist says: a switch, a value that is disabled by it, a preview and a button.
std::string pageItems() {
    return dictionary(text("cell", "PSGroupCell") + text("label", "group") + text("footerText", "explanation")) +
           dictionary(text("cell", "PSSwitchCell") + text("label", "sound") + text("key", "sound")) +
           dictionary(text("cell", "PSTitleValueCell") + text("label", "volume") + text("id", "volume") +
                      text("get", "volumeOf:") + "<key>enabled</key><false/>") +
           dictionary(text("cell", "PSTitleValueCell") + text("label", "preview") +
                      text("cellClass", "TestPreviewCell") + "<key>height</key><integer>60</integer>") +
           dictionary(text("cell", "PSGroupCell")) +
           dictionary(text("cell", "PSButtonCell") + text("label", "reset") + text("action", "ask:"));
}

}  // namespace

std::string dictionary(const std::string& contents) { return "<dict>" + contents + "</dict>"; }

std::string text(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key><string>" + value + "</string>";
}

std::string switchItem(const std::string& label, const std::string& key, const std::string& more) {
    return dictionary(text("cell", "PSSwitchCell") + text("label", label) + text("key", key) +
                      text("defaults", "com.example.lamp") + text("PostNotification", "com.example.lamp/" + key) +
                      "<key>default</key><true/>" + more);
}

SettingsTest::SettingsTest() {
    std::string name = (std::filesystem::temp_directory_path() / "zelka-settings-XXXXXX").string();
    root_ = std::filesystem::canonical(::mkdtemp(name.data()));
}

SettingsTest::~SettingsTest() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void SettingsTest::makePhone(const std::string& device, const std::string& language, bool rightToLeft) {
    phone::Device made = phone::deviceFromProfile(device).value();
    made.language = language;
    made.rightToLeft = rightToLeft;
    makePhone(made);
}

void SettingsTest::makePhone(const phone::Device& device) const {
    ASSERT_EQ(phone::problemOf(maker::makeFolders(root_)), "");
    ASSERT_EQ(phone::problemOf(phone::writeDevice(root_, device)), "");
}

void SettingsTest::installBundle(const std::string& executable) const {
    write(std::string(kEntries) + "TestPage.plist",
          list(dictionary("<key>entry</key>" +
                          dictionary(text("cell", "PSLinkCell") + text("label", "Test Page") +
                                     text("bundle", "TestPage") + "<key>isController</key><true/>"))));
    write(std::string(kBundle) + "Info.plist",
          list(dictionary(text("CFBundleExecutable", "TestPage") + text("NSPrincipalClass", "TestPageController"))));
    write(std::string(kBundle) + "Page.plist",
          list(dictionary(text("title", "title") + "<key>items</key><array>" + pageItems() + "</array>")));
    write(std::string(kBundle) + "en.lproj/Page.strings",
          "\"title\" = \"Test\";\n\"sound\" = \"Sound\";\n\"volume\" = \"Volume\";\n\"group\" = \"Noise\";\n"
          "\"reset\" = \"Reset\";\n\"question\" = \"Really?\";\n\"explanation\" = \"What it does.\";\n");
    write(std::string(kBundle) + "de.lproj/Page.strings",
          "/* in UTF-8 */\n\"title\" = \"Prüfung\";\n\"sound\" = \"Töne\";\n\"question\" = \"Wirklich?\";\n");
    write(std::string(kBundle) + "he.lproj/Page.strings", "\"title\" = \"בדיקה\";\n");
    write(std::string(kBundle) + "ar.lproj/Page.strings", list(dictionary(text("title", "اختبار"))));
    std::filesystem::copy_file(executable, root_ / (std::string(kBundle) + "TestPage"));
}

void SettingsTest::installList(const std::string& name, const std::string& items) const {
    write(kEntries + name + ".plist",
          list(dictionary("<key>entry</key>" + dictionary(text("cell", "PSLinkCell") + text("label", name)) +
                          text("title", name + " title") + "<key>items</key><array>" + items + "</array>")));
}

hosts::HostOptions SettingsTest::options() const {
    hosts::HostOptions options;
    options.root = root_;
    return options;
}

SettingsTest::Json SettingsTest::show(Host& host, const std::string& screen) const {
    host.call({{"do", "show"}, {"screen", screen}});
    host.call({{"do", "settle"}, {"timeout", 20}});
    return page(host);
}

SettingsTest::Json SettingsTest::row(Host& host, const std::string& label) const {
    const Json shown = page(host);
    for (const Json& each : shown.at("rows")) {
        if (each.at("label") == label) return each;
    }
    ADD_FAILURE() << "no row " << label << " in " << shown.dump(1);
    return {};
}

std::string SettingsTest::errorOf(Host& host, const Json& command) const {
    try {
        host.call(command);
    } catch (const hosts::HostError& error) {
        return error.what();
    }
    ADD_FAILURE() << command << " was no error";
    return {};
}

void SettingsTest::write(const std::string& phonePath, const std::string& contents) const {
    std::filesystem::create_directories((root_ / phonePath).parent_path());
    std::ofstream(root_ / phonePath, std::ios::binary) << contents;
}

std::string SettingsTest::read(const std::string& phonePath) const {
    std::ifstream file(root_ / phonePath, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

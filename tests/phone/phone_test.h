// A phone with the library installed, whose processes a test starts, changes things under, and looks at from outside.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/hosts/remote/host_process.h"
#include "simulator/maker/contacts/address_book_builder.h"

namespace hosts {

inline void PrintTo(HostKind kind, std::ostream* out) {
    *out << (kind == HostKind::springBoard ? "SpringBoard" : "CallBarViewService");
}

}  // namespace hosts

namespace test {

using Json = nlohmann::json;
using hosts::HostKind;
using hosts::HostProcess;

// The contacts that every phone here has, by their ID.
enum : int {
    kAnn = 1,     // a red photo
    kBob = 2,     // no photo
    kCara = 3,    // an e-mail address only, no photo
    kAcme = 4,    // an organization
    kNobody = 5,  // a number and nothing else
    kTom = 6,     // no photo, linked with kTwin
    kTwin = 7,    // a blue photo
    kDora = 8     // a green photo, no calls
};

constexpr const char* kRed = "#ff0000";
constexpr const char* kGreen = "#00c000";
constexpr const char* kBlue = "#0000ff";
constexpr const char* kPurple = "#8000c0";

// An encoded picture of one colour ("#rrggbb").
std::string picture(const std::string& colour);

class PhoneTest : public testing::Test {
  protected:
    PhoneTest();
    ~PhoneTest() override;

    // Makes the phone with its contacts and calls, the library, its bundle and its filter. Call it once.
    void makePhone(const std::string& device = "iphone6-8.4", bool rightToLeft = false);
    // What the standing contacts and calls are; override to have others.
    virtual void fill(maker::AddressBookBuilder& book);
    // Adds processes to those that the library is loaded into.
    void loadInto(const std::string& bundleIdentifier);

    hosts::HostOptions options() const;
    hosts::HostOptions optionsAs(const std::string& bundleIdentifier) const;

    // Changes the address book as another process does: each change is visible at once, `contact` is the one modified
    // last, and the system posts the change.
    template <class Change>
    void edit(int contact, Change change) {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root_).value();
        change(book);
        if (contact > 0) must(book.setModificationDate(contact, ++modified_));
        must(book.finish());
        post("__ABDataBaseChangedByOtherProcessNotification");
    }
    static void must(const phone::Status& status) { ASSERT_EQ(phone::problemOf(status), ""); }

    // Flips a switch as the preference bundle does: writes the file, then posts the switch's notification.
    void set(const std::string& key, bool on);
    void post(const std::string& notification) const;

    // Shows a screen and waits for its pictures.
    Json show(HostProcess& host, const std::string& screen, bool editing = false) const;
    // Waits until everything that was posted and queued is done, and answers the visible rows.
    Json rows(HostProcess& host, bool sources = true) const;
    Json favorites(HostProcess& host) const;
    void settle(HostProcess& host) const;

    std::string host(const std::string& phonePath) const;
    void write(const std::string& phonePath, const std::string& contents) const;
    std::string read(const std::string& phonePath) const;
    std::string log() const { return read("private/var/tmp/ZelkaCB.log"); }
    // How often the text occurs.
    static int count(const std::string& text, const std::string& part);

    std::filesystem::path folder_;
    std::filesystem::path root_;
    std::map<std::string, bool> switches_;
    double modified_ = 500'000'000;
};

// The row of a contact; fails the test when there is none.
Json rowOf(const Json& rows, int contact);
// "photo", "linked photo", "monogram", "silhouette", "default", "system monogram", "none"...
std::string sourceOf(const Json& row);
std::string centreOf(const Json& row);

constexpr const char* kBookPath = "private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kImagesPath = "private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";
constexpr const char* kSettingsFile = "private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist";

}  // namespace test

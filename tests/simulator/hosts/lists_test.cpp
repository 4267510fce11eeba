#include <gmock/gmock.h>

#include "tests/simulator/hosts/host_fixture.h"

namespace {

using hosts::HostKind;
using hosts::HostProcess;

std::vector<std::string> namesOf(const nlohmann::json& rows) {
    std::vector<std::string> names;
    for (const auto& row : rows) names.push_back(row.at("name"));
    return names;
}

TEST_F(HostTest, ContactsAreSortedByLastNameWithOneRowForLinkedOnes) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "contacts");
    EXPECT_EQ(namesOf(rows),
              (std::vector<std::string>{"Acme Pumps", "Cara", "Ann Lee", "Bob Stone", "Tom Twin", "No Name"}));
    EXPECT_EQ(rows[4].at("contact"), kFirstTwin);
}

TEST_F(HostTest, SearchFindsWordsByTheirBeginning) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    host.call({{"do", "show"}, {"screen", "search"}, {"text", "le"}});
    EXPECT_EQ(namesOf(host.call({{"do", "rows"}}).at("rows")), (std::vector<std::string>{"Ann Lee"}));
    host.call({{"do", "show"}, {"screen", "search"}, {"text", "TÓM"}});
    EXPECT_EQ(namesOf(host.call({{"do", "rows"}}).at("rows")), (std::vector<std::string>{"Tom Twin"}));
    host.call({{"do", "show"}, {"screen", "search"}, {"text", "zz"}});
    EXPECT_EQ(host.call({{"do", "rows"}}).at("rows"), Json::array());
    EXPECT_EQ(rowsOf(host, "contacts").size(), 6u);
}

TEST_F(HostTest, ContactsWithAndWithoutNameViewsDrawTheNameInsideTheRow) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    for (const bool nameViews : {true, false}) {
        for (const bool editing : {false, true}) {
            host.call({{"do", "show"}, {"screen", "contacts"}, {"editing", editing}, {"nameViews", nameViews}});
            const Json rows = host.call({{"do", "rows"}}).at("rows");
            ASSERT_EQ(rows.size(), 6u);
            for (const Json& row : rows) {
                const Frame name(row.at("frames").at("name"));
                EXPECT_GE(name.x, nameViews && editing ? 38 : 0);
                EXPECT_LE(name.right(), 375);
                EXPECT_EQ(row.at("editing"), editing);
            }
        }
    }
}

TEST_F(HostTest, AMissingAddressBookIsAnEmptyListAndTold) {
    makePhone();
    std::filesystem::remove(root_ / "private/var/mobile/Library/AddressBook/AddressBook.sqlitedb");
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(rowsOf(host, "contacts"), Json::array());
    EXPECT_THAT(host.standardError(), testing::HasSubstr("the contacts cannot be read"));
}

TEST_F(HostTest, TheButtonsChooseOneList) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    for (const char* list : {"favorites", "recents", "contacts", "favorites"})
        EXPECT_EQ(host.call({{"do", "toggle"}, {"list", list}}).at("selected"), Json::array({list}));
}

TEST_F(HostTest, FavouritesShowThePhotoElseTheInitialsOnTheSystemsGrey) {
    makePhone();
    writeFavorites(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><array>"
        "<dict><key>ABUid</key><integer>1</integer><key>Name</key><string>Old Name</string></dict>"
        "<dict><key>ABUid</key><integer>2</integer><key>Name</key><string>Bob Stone</string></dict>"
        "<dict><key>ABUid</key><integer>6</integer></dict>"
        "<dict><key>ABUid</key><integer>999</integer><key>Name</key><string>Gone Gary</string></dict>"
        "<dict><key>Label</key><string>nobody</string></dict>"
        "</array></plist>");
    HostProcess host(HostKind::springBoard, options());
    host.call({{"do", "show"}, {"screen", "favorites"}});
    const Json buttons = host.call({{"do", "favorites"}}).at("buttons");
    ASSERT_EQ(buttons.size(), 4u);
    EXPECT_EQ(namesOf(buttons), (std::vector<std::string>{"Ann Lee", "Bob Stone", "Tom Twin", "Gone Gary"}));
    EXPECT_EQ(buttons[0].at("picture").at("source"), "photo");
    EXPECT_EQ(buttons[1].at("picture").at("source"), "system monogram");
    EXPECT_EQ(buttons[2].at("picture").at("source"), "linked photo");
    EXPECT_EQ(buttons[2].at("picture").at("sourceContact"), kSecondTwin);
    EXPECT_EQ(buttons[3].at("picture").at("source"), "system monogram");
    EXPECT_EQ(buttons[0].at("picture").at("size"), Json::array({60, 60}));
    EXPECT_EQ(buttons[0].at("picture").at("scale"), 2);
    EXPECT_THAT(host.standardError(), testing::HasSubstr("names nobody"));
}

TEST_F(HostTest, BothGeneratorsDrawTheSystemsPictures) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    for (const char* generator : {"callbar", "system"}) {
        const Json ann = host.call({{"do", "monogram"}, {"generator", generator}, {"contact", kAnn}});
        EXPECT_EQ(ann.at("isPersonImage"), true);
        EXPECT_EQ(ann.at("picture").at("source"), "photo");
        const Json bob = host.call({{"do", "monogram"}, {"generator", generator}, {"contact", kBob}});
        EXPECT_EQ(bob.at("isPersonImage"), false);
        EXPECT_EQ(bob.at("picture").at("source"), "system monogram");
        const Json initials = host.call({{"do", "monogram"}, {"generator", generator}, {"initials", "BS"}});
        EXPECT_EQ(initials.at("picture").at("hash"), bob.at("picture").at("hash"));
        const Json nobody = host.call({{"do", "monogram"}, {"generator", generator}, {"contact", 4711}});
        EXPECT_EQ(nobody.at("picture").at("source"), "system monogram");
        const Json noPhoto = host.call({{"do", "monogram"}, {"generator", generator}, {"photo", "/missing"}});
        EXPECT_TRUE(noPhoto.at("picture").is_null());
    }
}

}  // namespace

// An address book that another process edits while the lists are on the screen.
#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

class LiveContacts : public PhoneTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Lists, LiveContacts, testing::Values("recents", "contacts"), test::ParameterName());

TEST_P(LiveContacts, ANewPhotoReplacesTheMonogram) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(sourceOf(rowOf(show(host, GetParam()), kBob)), "monogram");
    edit(kBob, [](auto& book) { must(book.setThumbnail(kBob, picture(kPurple))); });
    const Json row = rowOf(rows(host), kBob);
    EXPECT_EQ(sourceOf(row), "photo");
    EXPECT_EQ(centreOf(row), kPurple);
}

TEST_P(LiveContacts, ANewPhotoReplacesTheOldOne) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    EXPECT_EQ(centreOf(rowOf(show(host, GetParam()), kAnn)), kRed);
    edit(kAnn, [](auto& book) { must(book.setThumbnail(kAnn, picture(kPurple))); });
    EXPECT_EQ(centreOf(rowOf(rows(host), kAnn)), kPurple);
}

TEST_P(LiveContacts, ARemovedPhotoGivesWayToTheMonogram) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    show(host, GetParam());
    edit(kAnn, [](auto& book) { must(book.removePhoto(kAnn)); });
    EXPECT_EQ(sourceOf(rowOf(rows(host), kAnn)), "monogram");
}

TEST_P(LiveContacts, ALinkedContactsNewPhotoIsSeenOnceItsOwnPictureIsDropped) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(sourceOf(rowOf(show(host, GetParam()), kTom)), "linked photo");
    edit(kTwin, [](auto& book) { must(book.setThumbnail(kTwin, picture(kPurple))); });
    // Only the contact that changed is dropped; the one that borrows its photo keeps the borrowed one.
    EXPECT_EQ(centreOf(rowOf(rows(host), kTom)), kBlue);
    edit(kTom, [](auto&) {});
    EXPECT_EQ(centreOf(rowOf(rows(host), kTom)), kPurple);
}

TEST_P(LiveContacts, SeveralContactsEditedAtOnceAreOneNewPicture) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    show(host, GetParam());
    edit(kAnn, [](auto& book) {
        must(book.setThumbnail(kBob, picture(kPurple)));
        must(book.setThumbnail(kAnn, picture(kPurple)));
        must(book.setModificationDate(kBob, 400'000'000));
    });
    const Json after = rows(host);
    EXPECT_EQ(centreOf(rowOf(after, kAnn)), kPurple);
    EXPECT_EQ(sourceOf(rowOf(after, kBob)), "monogram");
    // Emptying the cache brings what was left.
    set("ZelkaCBEnabledRoundedPictures", true);
    EXPECT_EQ(centreOf(rowOf(rows(host), kBob)), kPurple);
}

TEST_P(LiveContacts, AChangeOfAContactWithoutCachedPictureRedrawsNothing) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    host.call({{"do", "info"}});
    edit(kDora, [](auto& book) { must(book.setThumbnail(kDora, picture(kPurple))); });
    settle(host);
    EXPECT_EQ(count(log(), "Removed last modified entry from the cache.."), 0);
    EXPECT_EQ(centreOf(rowOf(show(host, "contacts"), kDora)), kPurple);
}

TEST_P(LiveContacts, BothServedProcessesShowTheNewFace) {
    makePhone();
    HostProcess shell(HostKind::springBoard, options());
    HostProcess service(HostKind::callBarViewService, options());
    show(shell, GetParam());
    show(service, GetParam());
    edit(kAnn, [](auto& book) { must(book.setThumbnail(kAnn, picture(kPurple))); });
    for (HostProcess* host : {&shell, &service}) {
        EXPECT_EQ(centreOf(rowOf(rows(*host), kAnn)), kPurple);
    }
    EXPECT_EQ(count(log(), "Removed last modified entry from the cache.. 1"), 2);
}

using LiveContactsOnce = PhoneTest;

TEST_F(LiveContactsOnce, ADeletedContactKeepsItsPictureInRecentsUntilTheCacheIsEmptied) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    show(host, "recents");
    edit(0, [](auto& book) { must(book.removePerson(kAnn)); });
    EXPECT_EQ(centreOf(rowOf(rows(host), kAnn)), kRed);
    set("ZelkaCBEnabledRoundedPictures", true);
    EXPECT_NE(centreOf(rowOf(rows(host), kAnn)), kRed);
}

TEST_F(LiveContactsOnce, TheToolsEditShowsTheNewNamesInitials) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json before = rowOf(show(host, "contacts"), kBob);
    const std::string command = std::string(PHONESIM) + " edit " + root_.string() + " 2 --first Zed --last Quick";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const Json after = rowOf(rows(host), kBob);
    EXPECT_EQ(after.at("name"), "Zed Quick");
    EXPECT_EQ(sourceOf(after), "monogram");
    EXPECT_NE(after.at("picture").at("hash"), before.at("picture").at("hash"));
}

TEST_F(LiveContactsOnce, TheToolsEditGivesAPhotoAndTakesItAway) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    show(host, "recents");
    std::ofstream(folder_ / "face.bmp", std::ios::binary) << picture(kGreen);
    const std::string edit = std::string(PHONESIM) + " edit " + root_.string() + " 2 ";
    ASSERT_EQ(std::system((edit + "--photo " + (folder_ / "face.bmp").string()).c_str()), 0);
    EXPECT_EQ(sourceOf(rowOf(rows(host), kBob)), "photo");
    ASSERT_EQ(std::system((edit + "--no-photo").c_str()), 0);
    EXPECT_EQ(sourceOf(rowOf(rows(host), kBob)), "monogram");
}

TEST_F(LiveContactsOnce, FavouritesShowTheNewFace) {
    makePhone();
    write("private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><dict><key>ABUid</key><integer>1</integer></dict>"
          "</array></plist>");
    HostProcess shell(HostKind::springBoard, options());
    set("ZelkaCBEnabledRoundedPictures", false);
    EXPECT_EQ(centreOf(show(shell, "favorites").at(0)), kRed);
    edit(kAnn, [](auto& book) { must(book.setThumbnail(kAnn, picture(kPurple))); });
    EXPECT_EQ(centreOf(favorites(shell).at(0)), kPurple);
}

}  // namespace
}  // namespace test

// The call list as a person sees it: whose picture stands in which row, and where.
#include <gmock/gmock.h>

#include "tests/phone/phone_test.h"
#include "tests/support/parameter_name.h"

namespace test {
namespace {

class Served : public PhoneTest, public testing::WithParamInterface<HostKind> {};
INSTANTIATE_TEST_SUITE_P(Hosts, Served, testing::Values(HostKind::springBoard, HostKind::callBarViewService),
                         test::ParameterName());

TEST_P(Served, EveryCallerHasAPicture) {
    makePhone();
    HostProcess host(GetParam(), options());
    const Json shown = show(host, "recents");
    EXPECT_EQ(sourceOf(rowOf(shown, kAnn)), "photo");
    EXPECT_EQ(sourceOf(rowOf(shown, kBob)), "monogram");
    EXPECT_EQ(sourceOf(rowOf(shown, -1)), "silhouette");
    EXPECT_EQ(sourceOf(rowOf(shown, kNobody)), "silhouette");
    EXPECT_EQ(sourceOf(rowOf(shown, kTom)), "linked photo");
    EXPECT_EQ(rowOf(shown, kTom).at("picture").at("sourceContact"), kTwin);
    EXPECT_EQ(sourceOf(rowOf(shown, kAcme)), "monogram");
}

TEST_P(Served, MissedShowsTheSamePicturesAsRecents) {
    makePhone();
    HostProcess host(GetParam(), options());
    const Json all = show(host, "recents");
    const Json missed = show(host, "missed");
    EXPECT_EQ(missed.size(), 3u);
    for (const int contact : {kAnn, kTom})
        EXPECT_EQ(rowOf(missed, contact).at("picture").at("hash"), rowOf(all, contact).at("picture").at("hash"));
}

TEST_P(Served, ContactsHavePicturesToo) {
    makePhone();
    HostProcess host(GetParam(), options());
    const Json shown = show(host, "contacts");
    EXPECT_EQ(sourceOf(rowOf(shown, kAnn)), "photo");
    EXPECT_EQ(sourceOf(rowOf(shown, kBob)), "monogram");
    EXPECT_EQ(sourceOf(rowOf(shown, kNobody)), "silhouette");
    EXPECT_EQ(sourceOf(rowOf(shown, kTom)), "linked photo");
    // Names stand beside the pictures.
    for (const Json& row : shown) EXPECT_GE(row.at("frames").at("name").at(0), 40) << row;
}

TEST_P(Served, SearchResultsHavePictures) {
    makePhone();
    HostProcess host(GetParam(), options());
    const Json shown = show(host, "search lee");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(sourceOf(shown.at(0)), "photo");
}

TEST_P(Served, EditedContactsPutThePictureBehindTheDeleteControl) {
    makePhone();
    HostProcess host(GetParam(), options());
    for (const Json& row : show(host, "contacts", true)) {
        EXPECT_EQ(row.at("frames").at("picture"), Json({37, 1, 40, 40}));
        EXPECT_EQ(row.at("editing"), true);
    }
    for (const Json& row : show(host, "contacts")) EXPECT_EQ(row.at("frames").at("picture"), Json({2, 1, 40, 40}));
}

struct Look {
    const char* device;
    bool rightToLeft, editing;
    double pictureX;
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << look.device << (look.rightToLeft ? " right to left" : "") << (look.editing ? " editing" : "");
}

class RowLayout : public PhoneTest, public testing::WithParamInterface<Look> {};

TEST_P(RowLayout, NamesStandBesideThePictureAndEndBeforeTheDate) {
    makePhone(GetParam().device, GetParam().rightToLeft);
    HostProcess host(HostKind::springBoard, options());
    const Json shown = show(host, "recents", GetParam().editing);
    ASSERT_GE(shown.size(), 6u);
    for (const Json& row : shown) {
        SCOPED_TRACE(row.dump());
        const Json& frames = row.at("frames");
        EXPECT_EQ(frames.at("picture").at(0), GetParam().pictureX);
        EXPECT_EQ(frames.at("picture").at(1), 4);
        if (GetParam().rightToLeft) continue;
        if (std::string(GetParam().device).find("6.1") == std::string::npos) {
            EXPECT_EQ(frames.at("name").at(0), 52);
            EXPECT_EQ(frames.at("detail").at(0), 52);
            EXPECT_EQ(frames.at("detail").at(1), 27);
            EXPECT_LE(frames.at("name").at(0).get<double>() + frames.at("name").at(2).get<double>(),
                      frames.at("date").at(0).get<double>());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, RowLayout,
                         testing::Values(Look{"iphone6-8.4", false, false, 2}, Look{"iphone6-8.4", false, true, 2},
                                         Look{"iphone5s-7.1", false, false, 2}, Look{"iphone5s-7.1", false, true, 2},
                                         Look{"iphone6plus-9.3", false, false, 2}, Look{"ipad2-6.1", false, false, 2},
                                         Look{"iphone6-8.4", true, false, 375 - 12 - 22 - 48},
                                         Look{"iphone6-8.4", true, true, 375 - 70}),
                         test::ParameterName());

using System6 = PhoneTest;

TEST_F(System6, MonogramsGiveWayToTheDefaultPictureAndSearchHasNone) {
    makePhone("iphone4s-6.1");
    HostProcess host(HostKind::springBoard, options());
    const Json shown = show(host, "recents");
    EXPECT_EQ(sourceOf(rowOf(shown, kAnn)), "photo");
    EXPECT_EQ(sourceOf(rowOf(shown, kBob)), "default");
    EXPECT_EQ(sourceOf(rowOf(shown, kTom)), "default");
    EXPECT_EQ(rowOf(show(host, "contacts"), kAnn).at("hasPictureView"), true);
    // Where the full list was shown, the table hands out its cells again, which keep their picture views.
    host.call({{"do", "quit"}});
    HostProcess fresh(HostKind::callBarViewService, options());
    fresh.call({{"do", "show"}, {"screen", "search"}, {"text", "lee"}, {"nameViews", false}});
    const Json found = rows(fresh);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found.at(0).at("name"), "Ann Lee");
    EXPECT_EQ(found.at(0).at("hasPictureView"), false);
}

}  // namespace
}  // namespace test

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "simulator/maker/database/database.h"
#include "tests/simulator/hosts/host_fixture.h"
#include "tests/support/parameter_name.h"

namespace {

using hosts::HostKind;
using hosts::HostProcess;

TEST_F(HostTest, ConsecutiveCallsOfOneAddressShareARowUnlessOnlySomeWereMissed) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "recents");
    ASSERT_EQ(rows.size(), 8u);
    EXPECT_EQ(rows[0].at("name"), "Ann Lee");
    EXPECT_EQ(rows[0].at("calls"), 2);
    EXPECT_EQ(rows[0].at("detail"), "mobile (2)");
    EXPECT_EQ(rows[0].at("missed"), true);
    EXPECT_EQ(rows[1].at("name"), "Ann Lee");
    EXPECT_EQ(rows[1].at("calls"), 1);
    EXPECT_EQ(rows[1].at("missed"), false);
    EXPECT_EQ(rows[1].at("detail"), "mobile");
}

TEST_F(HostTest, CallersAreNamedFromTheAddressBookElseByTheirNumberOrAddress) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "recents");
    ASSERT_EQ(rows.size(), 8u);
    EXPECT_EQ(rows[2].at("name"), "Bob Stone");
    EXPECT_EQ(rows[2].at("contact"), kBob);
    EXPECT_EQ(rows[3].at("name"), "(646) 555-0199");
    EXPECT_EQ(rows[3].at("contact"), -1);
    EXPECT_EQ(rows[3].at("detail"), "unknown");
    EXPECT_EQ(rows[4].at("name"), "Cara");
    EXPECT_EQ(rows[5].at("name"), "Acme Pumps");
    EXPECT_EQ(rows[5].at("detail"), "work");
    // A contact without any name is told by its number.
    EXPECT_EQ(rows[6].at("contact"), kNobody);
    EXPECT_EQ(rows[6].at("name"), "(305) 555-0164");
    EXPECT_EQ(rows[6].at("answersCallerName"), false);
}

TEST_F(HostTest, CallObjectsAnswerByTheCallsRow) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "recents");
    ASSERT_EQ(rows.size(), 8u);
    std::set<std::string> kinds;
    for (const Json& row : rows) kinds.insert(row.at("answers").get<std::string>());
    EXPECT_EQ(kinds, (std::set<std::string>{"uid", "addressBookRecordId", "neither"}));
    const auto answersName = [](const Json& row) { return row.at("answersCallerName") == true; };
    EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), answersName));
    EXPECT_FALSE(std::all_of(rows.begin(), rows.end(), answersName));
}

TEST_F(HostTest, MissedShowsOnlyMissedCalls) {
    makePhone();
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "missed");
    ASSERT_EQ(rows.size(), 3u);
    for (const Json& row : rows) EXPECT_EQ(row.at("missed"), true);
    EXPECT_EQ(rows[0].at("calls"), 2);
    EXPECT_EQ(rowsOf(host, "recents").size(), 8u);
}

TEST_F(HostTest, WithoutTheLibraryNoRowHasAPictureView) {
    makePhone();
    HostProcess host(HostKind::callBarViewService, options());
    for (const char* screen : {"recents", "contacts"}) {
        const Json rows = rowsOf(host, screen);
        ASSERT_FALSE(rows.empty());
        for (const Json& row : rows) {
            EXPECT_EQ(row.at("hasPictureView"), false);
            EXPECT_TRUE(row.at("picture").is_null());
        }
    }
}

struct Look {
    const char* device;
    bool rightToLeft;
    bool editing;
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << look.device << (look.rightToLeft ? " right to left" : "") << (look.editing ? " editing" : "");
}

class RecentsLayout : public HostTest, public testing::WithParamInterface<Look> {};

TEST_P(RecentsLayout, TextsStandApartInsideTheRow) {
    makePhone(GetParam().device, GetParam().rightToLeft);
    HostProcess host(HostKind::springBoard, options());
    const Json rows = rowsOf(host, "recents", GetParam().editing);
    ASSERT_GE(rows.size(), 7u);
    for (const Json& row : rows) {
        SCOPED_TRACE(row.dump(2));
        const Frame whole(row.at("frame"));
        const Json& frames = row.at("frames");
        const Frame name(frames.at("name"));
        const Frame detail(frames.at("detail"));
        const Frame date(frames.at("date"));
        EXPECT_EQ(row.at("editing"), GetParam().editing);
        EXPECT_LE(name.bottom(), detail.y + 1);
        EXPECT_LE(detail.bottom(), whole.height);
        EXPECT_GT(name.width, 50);
        if (GetParam().rightToLeft) {
            EXPECT_DOUBLE_EQ(name.right(), detail.right());
            EXPECT_LE(date.right(), name.x);
            EXPECT_GE(date.x, 0);
        } else {
            EXPECT_DOUBLE_EQ(name.x, detail.x);
            EXPECT_LE(name.right(), date.x);
            EXPECT_LE(date.right(), whole.width - 30);
        }
        EXPECT_EQ(frames.at("icon").is_null(), row.at("outgoing") == false);
        if (!frames.at("icon").is_null()) {
            const Frame icon(frames.at("icon"));
            EXPECT_GE(icon.y, detail.y);
            EXPECT_TRUE(GetParam().rightToLeft ? icon.right() <= detail.x : icon.x >= detail.right());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, RecentsLayout,
                         testing::Values(Look{"iphone4s-6.1", false, false}, Look{"iphone5s-7.1", false, false},
                                         Look{"iphone6-8.4", false, false}, Look{"iphone6-8.4", false, true},
                                         Look{"iphone6-8.4", true, false}, Look{"iphone6-8.4", true, true},
                                         Look{"iphone5s-7.1", true, false}, Look{"iphone6plus-9.3", true, true},
                                         Look{"ipad2-6.1", true, false}),
                         test::ParameterName());

TEST_F(HostTest, ScrollingToARowShowsIt) {
    makePhone("iphone4-7.1");
    HostProcess host(HostKind::springBoard, options());
    host.call({{"do", "show"}, {"screen", "recents"}});
    const double lowest = host.call({{"do", "scroll"}, {"offset", 100000}}).at("offset");
    EXPECT_GT(lowest, 0);
    const Json rows = host.call({{"do", "rows"}}).at("rows");
    EXPECT_EQ(rows.back().at("row"), 7);
    EXPECT_EQ(host.call({{"do", "scroll"}, {"offset", -50}}).at("offset"), 0);
}

TEST_F(HostTest, AMissingCallHistoryIsAnEmptyListAndTold) {
    makePhone();
    std::filesystem::remove(root_ / "private/var/mobile/Library/CallHistoryDB/CallHistory.storedata");
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(rowsOf(host, "recents"), Json::array());
    EXPECT_THAT(host.standardError(), testing::HasSubstr("the call history cannot be read"));
}

TEST_F(HostTest, DatesThatNoCalendarTellsAreEmpty) {
    makePhone("iphone5s-7.1");
    maker::Database calls =
        maker::Database::open(root_ / "private/var/wireless/Library/CallHistory/call_history.db", false).value();
    for (const char* date : {"1e300", "-1e300", "9e999", "1e18", "-1e18"}) {
        ASSERT_EQ(phone::problemOf(calls.execute((std::string("UPDATE call SET date = ") + date).c_str())), "");
        HostProcess host(HostKind::springBoard, options());
        const Json rows = rowsOf(host, "recents");
        ASSERT_FALSE(rows.empty()) << date;
        for (const Json& row : rows) EXPECT_EQ(row.at("date"), "") << date;
        EXPECT_EQ(host.quit(), 0);
    }
    ASSERT_EQ(phone::problemOf(calls.execute("UPDATE call SET date = 64092211200")), "");
    HostProcess host(HostKind::springBoard, options());
    EXPECT_EQ(rowsOf(host, "recents")[0].at("date"), "1/1/01");
}

}  // namespace

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/calls/call_history.h"
#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/common/read_file.h"
#include "simulator/maker/database/schema.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kNow = 1433151660;  // 2015-06-01 09:41 UTC

class Calls : public testing::Test {
  protected:
    // The call history that a text of calls makes beside three contacts: address, date, duration, flags, id, name.
    std::vector<std::string> make(const std::string& calls) {
        maker::RootOptions options;
        options.root = bench.root();
        options.contacts = {
            bench.write("contacts.vcf",
                        "BEGIN:VCARD\nN:Lee;Ann;;;\nTEL:(212) 555-0142\nEND:VCARD\n"
                        "BEGIN:VCARD\nN:Berg;Bo;;;\nTEL:+49 30 23125118\nEMAIL:bo@example.com\nEND:VCARD\n"
                        "BEGIN:VCARD\nORG:Works\nTEL:611\nEND:VCARD\n")};
        options.calls = bench.write("calls.csv", calls);
        options.now = kNow;
        // Its history remembers the contacts.
        options.device = "iphone5s-7.1";
        problem = phone::problemOf(maker::makeRoot(options));
        if (!problem.empty()) return {};
        return test::queryCalls(bench.root(),
                                "SELECT address, date, duration, flags, id, name FROM call ORDER BY ROWID");
    }

    test::Workbench bench;
    std::string problem;
};

TEST_F(Calls, FindTheirContactByAnySpellingOfItsNumber) {
    EXPECT_THAT(
        make("-1m, +1 212-555-0142, incoming, 3\n-1m, 011 49 30 23125 118, incoming, 3\n-1m, 611, incoming, 3\n"),
        ElementsAre("+1 212-555-0142", "1433151600", "3", "4", "1", "Ann Lee",  //
                    "011 49 30 23125 118", "1433151600", "3", "4", "2", "Bo Berg", "611", "1433151600", "3", "4", "3",
                    "Works"));
}

TEST_F(Calls, FindTheirContactByAddressWhateverItsCase) {
    EXPECT_THAT(make("-1h, BO@example.com, outgoing, 12\n"),
                ElementsAre("BO@example.com", "1433148060", "12", "5", "2", "Bo Berg"));
}

TEST_F(Calls, OfUnknownOrUnlinkedCallersHaveNoContact) {
    EXPECT_THAT(make("-1d, 555 0199, missed\n-2s, (212) 555-0142, missed, 0, unlinked\n-1s, Unknown, missed\n"),
                ElementsAre("555 0199", "1433065260", "0", "4", "-1", "NULL",        //
                            "(212) 555-0142", "1433151658", "0", "4", "-1", "NULL",  //
                            "Unknown", "1433151659", "0", "4", "-1", "NULL"));
}

TEST_F(Calls, DatesAreUtcAndCommentsAreSkipped) {
    EXPECT_THAT(make("# a comment\n\n  2015-06-01 09:41 , 1, outgoing\r\n2015-06-01T09:41:05, 1, outgoing"),
                ElementsAre("1", "1433151660", "0", "5", "-1", "NULL", "1", "1433151665", "0", "5", "-1", "NULL"));
}

TEST_F(Calls, MistakesAreToldWithFileAndLine) {
    const std::pair<const char*, const char*> mistakes[] = {
        {"\nyesterday, 1, missed", "calls.csv, line 2: \"yesterday\" is neither a date"},
        {"-2w, 1, missed", "\"-2w\" is neither"},
        {"2015-02-31 09:41, 1, missed", "\"2015-02-31 09:41\" is neither"},
        {"-2h, 1, sideways", "\"sideways\" is not incoming, outgoing or missed"},
        {"-2h, 1", "needs a time, a number and a kind"},
        {"-2h, 1, outgoing, x", "\"x\" is no number of seconds"},
        {"-2h, 1, outgoing, -4", "\"-4\" is no number of seconds"},
        {"-2h, 1, missed, 4", "a missed call lasts 0 seconds"},
        {"-2h, 1, incoming", "is a missed one"},
        {"-2h, 1, missed, 0, Ann", "can only be \"unlinked\", not \"Ann\""},
        {"-2h, 1, missed, 0, unlinked, 2", "more than five fields"}};
    for (auto [text, message] : mistakes) {
        make(text);
        EXPECT_THAT(problem, HasSubstr(message));
    }
    EXPECT_FALSE(std::filesystem::exists(bench.root()));
}

TEST_F(Calls, AreMadeUpFromTheBookWhenNoneAreGiven) {
    maker::RootOptions options;
    options.root = bench.root();
    options.contactsCount = 20;
    options.now = kNow;
    options.device = "iphone5s-7.1";
    ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
    auto count = [&](const char* condition) {
        return test::queryCalls(bench.root(), (std::string("SELECT count(*) FROM call WHERE ") + condition).c_str())
            .at(0);
    };
    EXPECT_EQ(count("1"), "60");
    EXPECT_EQ(count("flags = 4 AND duration = 0"), "12");
    EXPECT_EQ(count("flags = 5"), "16");
    EXPECT_EQ(count("date > 1433151660"), "0");
    EXPECT_NE(count("id = -1"), "0");
    EXPECT_NE(count("id > 0 AND name IS NOT NULL"), "0");
}

TEST_F(Calls, OfAnyAddressAndContactMakeFavoritesThatCanBeRead) {
    make("-1m, 611, incoming, 3\n");
    maker::Database calls = maker::Database::open(bench.root() / maker::callHistoryShape().path, false).value();
    ASSERT_EQ(phone::problemOf(calls.execute(
                  "UPDATE call SET address = CAST(x'3631FF31' AS TEXT);"
                  "INSERT INTO call (address, id) VALUES ('1', 4294967299), ('2', 2147483648), ('3', 1)")),
              "");
    ASSERT_EQ(phone::problemOf(maker::writeFavorites(bench.root())), "");
    const std::string written = maker::readFile(maker::favoritesPath(bench.root())).value();
    EXPECT_THAT(written, HasSubstr("<integer>3</integer><key>Value</key><string>61\uFFFD1</string>"));
    EXPECT_THAT(written, HasSubstr("<integer>1</integer><key>Value</key><string>3</string>"));
    EXPECT_EQ(written.find("2147483647"), std::string::npos);
    EXPECT_EQ(written.find("<string>1</string>"), std::string::npos);
}

TEST_F(Calls, TheSurestMatchIsTheCaller) {
    maker::RootOptions options;
    options.root = bench.root();
    options.contacts = {bench.write("c.vcf",
                                    "BEGIN:VCARD\nN:;Local;;;\nTEL:5550142\nEND:VCARD\n"
                                    "BEGIN:VCARD\nN:;Whole;;;\nTEL:+1 212 555 0142\nEND:VCARD\n")};
    ASSERT_EQ(phone::problemOf(maker::makeRoot(options)), "");
    const maker::Callers callers = maker::Callers::of(bench.root(), "US").value();
    EXPECT_EQ(callers.find("(212) 555-0142").value().name, "Whole");
    EXPECT_EQ(callers.find("(415) 555-0142").value().name, "Local");
    EXPECT_EQ(callers.find("").value().contact, -1);
}

}  // namespace

// What rows show of a phone that was made for a given moment.
#include <nlohmann/json.hpp>

#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

class PhoneSimRows : public PhoneSim {
  protected:
    // One row of a screen, by the text of its name; fails the test when there is none.
    nlohmann::json row(const std::string& screen, const std::string& name) const {
        const Outcome shot = run("shot phone " + screen + " --row-details --without-extension");
        EXPECT_EQ(shot.status, 0) << shot.err;
        for (const auto& row : nlohmann::json::parse(shot.out)) {
            if (row.at("name") == name) return row;
        }
        ADD_FAILURE() << "no row " << name << " in " << shot.out;
        return {};
    }
};

TEST_F(PhoneSimRows, NewMakesCallsForAGivenMoment) {
    write("calls.csv", "-1h, (212) 555-0142, missed\n");
    makePhone(" --calls calls.csv --now '2015-06-01 09:41'");
    EXPECT_EQ(row("recents", "Ann Lee").at("date"), "6/1/15");
    EXPECT_EQ(run("new other --no-calls --now yesterday").status, 1);
    EXPECT_THAT(run("new other --no-calls --now yesterday").err, testing::HasSubstr("\"yesterday\" is no date"));
    EXPECT_FALSE(std::filesystem::exists(path_ / "other"));
}

TEST_F(PhoneSimRows, EastAsianNamesHaveTheFamilyNameFirst) {
    makePhone();
    const std::pair<const char*, const char*> names[] = {{"--first 小明 --last 王", "王小明"},
                                                         {"--first 花子 --last 佐藤", "佐藤花子"},
                                                         {"--first 민준 --last 김", "김민준"},
                                                         {"--first みなみ --last スズキ", "スズキみなみ"},
                                                         {"--first 𠮷 --last 野", "野𠮷"},
                                                         {"--first Ann --last 李", "Ann 李"},
                                                         {"--first Анна --last Соколова", "Анна Соколова"}};
    for (const auto& [change, shown] : names) {
        ASSERT_EQ(run(std::string("edit phone 1 ") + change).status, 0);
        EXPECT_EQ(row("contacts", shown).at("contact"), 1) << change;
    }
    ASSERT_EQ(run("edit phone 1 --first 小明 --last ''").status, 0);
    row("contacts", "小明");
}

TEST_F(PhoneSimRows, FavoritesArePrintedByTheirButtons) {
    write("calls.csv", "-1h, (212) 555-0142, missed\n");
    makePhone(" --calls calls.csv");
    const nlohmann::json favorite = row("favorites", "Ann Lee");
    EXPECT_EQ(favorite.at("contact"), 1);
    EXPECT_TRUE(favorite.contains("picture"));
}

}  // namespace

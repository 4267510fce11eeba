#include "simulator/phone_number/phone_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/parameter_name.h"

namespace {

using phone_number::compare;
using phone_number::Match;
using testing::ElementsAre;
using testing::IsEmpty;

struct Pair {
    const char *region, *a, *b;
    Match match;
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.region << ' ' << pair.a << " and " << pair.b
         << (pair.match == Match::exact       ? " match"
             : pair.match == Match::shortForm ? " match in short"
                                              : " differ");
}

class PhoneNumberPairs : public testing::TestWithParam<Pair> {};

TEST_P(PhoneNumberPairs, Compare) {
    auto [region, a, b, match] = GetParam();
    EXPECT_EQ(compare(a, b, region), match) << a << " / " << b;
    EXPECT_EQ(compare(b, a, region), match) << b << " / " << a;
}

INSTANTIATE_TEST_SUITE_P(All, PhoneNumberPairs,
                         testing::Values(Pair{"US", "(212) 555-0142", "+1 212 555 0142", Match::exact},
                                         Pair{"US", "212.555.0142", "1-212-555-0142", Match::exact},
                                         Pair{"US", "011 49 30 23125118", "+49 (0)30 23125-118", Match::exact},
                                         Pair{"US", "555-0142", "(212) 555-0142", Match::shortForm},
                                         Pair{"US", "0142", "(212) 555-0142", Match::none},
                                         Pair{"US", "(212) 555-0142", "(212) 555-0143", Match::none},
                                         Pair{"US", "(212) 555-0142", "+44 212 555 0142", Match::none},
                                         Pair{"US", "1-800-FLOWERS", "+1 800 356 9377", Match::exact},
                                         Pair{"DE", "030 23125118", "+49 30 23125118", Match::exact},
                                         Pair{"DE", "0049 30 23125118", "030/23125118", Match::exact},
                                         Pair{"DE", "0151 23456789", "+49151-23456789", Match::exact},
                                         Pair{"US", "030 23125118", "+49 30 23125118", Match::none},
                                         Pair{"IL", "052-234-5678", "+972 52 234 5678", Match::exact},
                                         Pair{"JP", "090-1234-5678", "+81 90 1234 5678", Match::exact},
                                         Pair{"JP", "０９０−１２３４−５６７８", "+819012345678", Match::exact},
                                         Pair{"EG", "٠١٠٠١٢٣٤٥٦٧", "+20 100 123 4567", Match::exact},
                                         Pair{"US", "*1", "*1", Match::exact}, Pair{"US", "*1", "#1", Match::none},
                                         Pair{"US", "Unknown", "Unknown", Match::none}, Pair{"US", "", "", Match::none},
                                         Pair{"US", "611", "(212) 555-0611", Match::none}),
                         test::ParameterName());

TEST(PhoneNumber, LastFourDigitsLeaveTheExtensionOutFirst) {
    EXPECT_THAT(phone_number::lastFour("+1 (212) 555-0142", "US"), ElementsAre("0142"));
    EXPECT_THAT(phone_number::lastFour("212 555 0142 x99", "US"), ElementsAre("0142", "4299"));
    EXPECT_THAT(phone_number::lastFour("1-800-FLOWERS", "US"), ElementsAre("9377", "1800"));
    EXPECT_THAT(phone_number::lastFour("611", "US"), ElementsAre("611"));
    EXPECT_THAT(phone_number::lastFour("Unknown", "US"), IsEmpty());
}

TEST(PhoneNumber, IsDisplayedNationallyAtHomeAndInternationallyAbroad) {
    EXPECT_EQ(phone_number::displayForm("+12125550142", "US"), "(212) 555-0142");
    EXPECT_EQ(phone_number::displayForm("12125550142", "US"), "(212) 555-0142");
    EXPECT_EQ(phone_number::displayForm("+12125550142", "DE"), "+1 212-555-0142");
    EXPECT_EQ(phone_number::displayForm("+493023125118", "DE"), "030 23125118");
    EXPECT_EQ(phone_number::displayForm("0522345678", "IL"), "052-234-5678");
    EXPECT_EQ(phone_number::displayForm("+819012345678", "JP"), "090-1234-5678");
}

TEST(PhoneNumber, TextsThatAreNoPhoneNumberAreDisplayedAsTheyAre) {
    for (const char* text : {"", "Unknown", "bob@example.com", "12 34", "+999 1", "*100#", "☎"}) {
        EXPECT_EQ(phone_number::displayForm(text, "US"), text);
    }
}

TEST(PhoneNumber, KnowsCountries) {
    EXPECT_TRUE(phone_number::isRegion("IL"));
    for (const char* text : {"", "us", "USA", "ZZ"}) EXPECT_FALSE(phone_number::isRegion(text)) << text;
}

}  // namespace

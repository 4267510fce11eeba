// The tables with which the code of 32-bit phones says what it wants to know of exceptions.
#include "simulator/runtime/macho/sjlj_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using phone::macho::Landing;
using phone::macho::landingOf;

// Four calls: one that cleans up at place 0, one that wants nothing of its own but has place 1, one that catches all at
// place 2 after a clean-up, one that looks for a type at place 3.
const std::vector<std::uint8_t> kTable = {
    0xff,                        // no landing base
    0x00, 27,                    // types, the last of them so far behind this
    0x03, 8,                     // calls, of that many bytes
    0,    0,  1, 0, 2, 3, 3, 7,  //
    0,    0,                     // the actions: clean up
    0,    1,                     // clean up, then the next
    1,    0,                     // the first type
    2,    0,                     // the second
    0,                           // nothing, to align
    7,    0,  0, 0,              // the second type: some
    0,    0,  0, 0,              // the first: every
};

TEST(SjljTable, ACallThatCleansUp) {
    const Landing landing = landingOf(kTable.data(), 1);
    EXPECT_TRUE(landing.wanted);
    EXPECT_FALSE(landing.catches);
    EXPECT_EQ(landing.pad, 0u);
}

TEST(SjljTable, PlacesAreThoseOfTheCall) { EXPECT_EQ(landingOf(kTable.data(), 2).pad, 1u); }

TEST(SjljTable, ACallThatCatchesEverythingAfterCleaningUp) {
    const Landing landing = landingOf(kTable.data(), 3);
    EXPECT_TRUE(landing.catches);
    EXPECT_EQ(landing.pad, 2u);
    EXPECT_EQ(landing.type, 1u);
}

TEST(SjljTable, ACallOutsideTheTableWantsNothing) { EXPECT_FALSE(landingOf(kTable.data(), 5).wanted); }

TEST(SjljTableDeathTest, ACallThatLooksForOneTypeEndsTheProcess) {
    EXPECT_DEATH(landingOf(kTable.data(), 4), "exceptions of one type");
}

}  // namespace

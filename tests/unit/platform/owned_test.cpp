#include <gtest/gtest.h>

#include "src/platform/foundation.h"
#include "tests/unit/platform/witness.h"

namespace {

NSObject makeWitness() { return NSObject{static_cast<id>(witnessMake())}; }

NSUInteger countOf(NSObject object) { return send<NSUInteger, "retainCount">(object); }

TEST(Owned, ReleasesWhatItAdopted) {
    {
        auto owned = Owned<NSObject>::adopt(makeWitness());
        EXPECT_TRUE(static_cast<bool>(owned));
        EXPECT_EQ(countOf(owned.get()), 1U);
        EXPECT_EQ(witnessesAlive(), 1);
    }
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, RetainsWhatSomebodyElseOwns) {
    auto first = Owned<NSObject>::adopt(makeWitness());
    {
        auto second = Owned<NSObject>::retain(first.get());
        EXPECT_EQ(countOf(first.get()), 2U);
    }
    EXPECT_EQ(countOf(first.get()), 1U);
}

TEST(Owned, CopiesRetainAndMovesDoNot) {
    auto first = Owned<NSObject>::adopt(makeWitness());
    Owned<NSObject> copy = first;
    EXPECT_EQ(countOf(first.get()), 2U);
    Owned<NSObject> moved = std::move(copy);
    EXPECT_EQ(countOf(first.get()), 2U);
    moved = first;
    EXPECT_EQ(countOf(first.get()), 2U);
    moved = Owned<NSObject>();
    EXPECT_EQ(countOf(first.get()), 1U);
}

TEST(Owned, AssignmentGivesUpWhatWasHeld) {
    auto held = Owned<NSObject>::adopt(makeWitness());
    held = Owned<NSObject>::adopt(makeWitness());
    EXPECT_EQ(witnessesAlive(), 1);
    auto& itself = held;
    held = itself;
    EXPECT_EQ(countOf(held.get()), 1U);
    EXPECT_EQ(witnessesAlive(), 1);
}

TEST(Owned, LeakHandsTheReferenceOver) {
    NSObject object;
    {
        auto owned = Owned<NSObject>::adopt(makeWitness());
        object = owned.leak();
        EXPECT_FALSE(static_cast<bool>(owned));
    }
    EXPECT_EQ(countOf(object), 1U);
    EXPECT_EQ(witnessesAlive(), 1);
    Owned<NSObject>::adopt(object);
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, AutoreleaseHandsTheReferenceToThePool) {
    {
        AutoreleasePool pool;
        NSObject object = Owned<NSObject>::adopt(makeWitness()).autorelease();
        EXPECT_EQ(countOf(object), 1U);
        EXPECT_EQ(witnessesAlive(), 1);
    }
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, HoldsReferencesOfCoreFoundationAlike) {
    auto object = Owned<NSObject>::adopt(makeWitness());
    const void* reference = object.get().object;
    {
        auto owned = Owned<const void*>::retain(reference);
        EXPECT_EQ(countOf(object.get()), 2U);
        Owned<const void*> copy = owned;
        EXPECT_EQ(countOf(object.get()), 3U);
    }
    EXPECT_EQ(countOf(object.get()), 1U);
    Owned<const void*> none = Owned<const void*>::adopt(nullptr);
    EXPECT_FALSE(static_cast<bool>(none));
}

TEST(Owned, OfNothingDoesNothing) {
    Owned<NSObject> none;
    Owned<NSObject> copy = none;
    EXPECT_FALSE(static_cast<bool>(Owned<NSObject>::retain(NSObject{})));
    EXPECT_FALSE(static_cast<bool>(copy.autorelease()));
}

TEST(Literal, IsOneTextForEachSpelling) {
    AutoreleasePool pool;
    NSString text = literal<"Grüße 👋">();
    EXPECT_EQ(text, literal<"Grüße 👋">());
    EXPECT_STREQ(text.utf8(), "Grüße 👋");
    EXPECT_NE(text, literal<"Grüße">());
}

}  // namespace

#include <gtest/gtest.h>

#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSValue.h"
#include "tests/unit/platform/witness.h"

namespace zelka {
namespace {

NSObject makeWitness() { return NSObject{static_cast<id>(witnessMake())}; }

NSUInteger countOf(NSObject object) { return send<NSUInteger, "retainCount">(object); }

TEST(Owned, ReleasesWhatItAdopted) {
    {
        auto owned = adopt(makeWitness());
        EXPECT_TRUE(static_cast<bool>(owned));
        EXPECT_EQ(countOf(owned.get()), 1U);
        EXPECT_EQ(witnessesAlive(), 1);
    }
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, RetainsWhatSomebodyElseOwns) {
    auto first = adopt(makeWitness());
    {
        auto second = retain(first.get());
        EXPECT_EQ(countOf(first.get()), 2U);
    }
    EXPECT_EQ(countOf(first.get()), 1U);
}

TEST(Owned, CopiesRetainAndMovesDoNot) {
    auto first = adopt(makeWitness());
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
    auto held = adopt(makeWitness());
    held = adopt(makeWitness());
    EXPECT_EQ(witnessesAlive(), 1);
    auto& itself = held;
    held = itself;
    EXPECT_EQ(countOf(held.get()), 1U);
    EXPECT_EQ(witnessesAlive(), 1);
}

TEST(Owned, LeakHandsTheReferenceOver) {
    NSObject object;
    {
        auto owned = adopt(makeWitness());
        object = owned.leak();
        EXPECT_FALSE(static_cast<bool>(owned));
    }
    EXPECT_EQ(countOf(object), 1U);
    EXPECT_EQ(witnessesAlive(), 1);
    static_cast<void>(adopt(object));
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, AutoreleaseHandsTheReferenceToThePool) {
    {
        AutoreleasePool pool;
        NSObject object = adopt(makeWitness()).autorelease();
        EXPECT_EQ(countOf(object), 1U);
        EXPECT_EQ(witnessesAlive(), 1);
    }
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, HoldsReferencesOfCoreFoundationAlike) {
    auto object = adopt(makeWitness());
    const void* reference = object.get().object;
    {
        auto owned = retain(reference);
        EXPECT_EQ(countOf(object.get()), 2U);
        Owned<const void*> copy = owned;
        EXPECT_EQ(countOf(object.get()), 3U);
    }
    EXPECT_EQ(countOf(object.get()), 1U);
    Owned<const void*> none = adopt<const void*>(nullptr);
    EXPECT_FALSE(static_cast<bool>(none));
}

TEST(Owned, BecomesTheOwnerUnderASuperclassesHandle) {
    AutoreleasePool pool;
    Owned<NSMutableString> text = NSMutableString::create();
    NSObject object = text.get();
    Owned<NSString> copy = text;
    EXPECT_EQ(countOf(object), 2U);
    Owned<NSObject> moved = std::move(text);
    EXPECT_EQ(moved.get(), object);
    EXPECT_EQ(countOf(object), 2U);
    moved = std::move(copy);
    EXPECT_EQ(countOf(object), 1U);
}

TEST(Owned, IsNeverGivenBackWhenKeptForever) {
    // Nothing else refers to the object, and the test gives it back after all.
    NSObject object = keepForever(adopt(makeWitness()));
    EXPECT_EQ(countOf(object), 1U);
    EXPECT_EQ(witnessesAlive(), 1);
    static_cast<void>(adopt(object));
    EXPECT_EQ(witnessesAlive(), 0);
}

TEST(Owned, ComesFromAllocationAndCopying) {
    AutoreleasePool pool;
    Owned<NSObject> witness = allocInit<NSObject>(platformClass<"Witness">());
    EXPECT_EQ(witnessesAlive(), 1);
    EXPECT_EQ(countOf(witness.get()), 1U);
    Owned<NSString> text = allocInit<NSString, "initWithUTF8String:">("text");
    EXPECT_STREQ(text->utf8(), "text");
    Owned<NSMutableDictionary> dictionary = NSMutableDictionary::create();
    dictionary->setObject(witness.get(), text.get());
    Owned<NSDictionary> copy = copyOf(as<NSDictionary>(dictionary.get()));
    dictionary->removeAllObjects();
    EXPECT_EQ(copy->objectFor(text.get()), witness.get());
}

TEST(Owned, OfNothingDoesNothing) {
    Owned<NSObject> none;
    Owned<NSObject> copy = none;
    EXPECT_FALSE(static_cast<bool>(retain(NSObject{})));
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
}  // namespace zelka

#include "src/cache/hash_chains.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <random>
#include <vector>

namespace {

struct Entry {
    explicit Entry(std::uint64_t entryHash) : hash(entryHash) {}

    const std::uint64_t hash;
    Entry* next = nullptr;
};

using Chains = zelka::HashChains<Entry, &Entry::next, &Entry::hash>;
using Entries = std::vector<std::unique_ptr<Entry>>;

Entries consecutive(std::uint64_t count) {
    Entries entries;
    for (std::uint64_t number = 0; number < count; ++number) entries.push_back(std::make_unique<Entry>(number));
    return entries;
}

Entries scattered(std::uint64_t count) {
    std::mt19937_64 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same entries in every run
    Entries entries;
    for (std::uint64_t number = 0; number < count; ++number) entries.push_back(std::make_unique<Entry>(random()));
    return entries;
}

// How many entries stand before the one of that hash and with it; 0 when there is none.
int stepsTo(Chains& chains, std::uint64_t hash) {
    int steps = 1;
    Entry** link = chains.begin(hash);
    for (; link != nullptr && *link != nullptr && (*link)->hash != hash; link = &(*link)->next) ++steps;
    return link != nullptr && *link != nullptr ? steps : 0;
}

TEST(HashChains, AreEmptyAtFirst) {
    Chains chains;
    EXPECT_EQ(chains.begin(5), nullptr);
    EXPECT_FALSE(chains.hasChains());
    std::size_t steps = 10;
    EXPECT_EQ(chains.takeAny(steps), nullptr);
    chains.free();
}

// Finding takes as long with a hundred thousand entries as with ten.
TEST(HashChains, GrowWithWhatTheyHold) {
    for (const std::uint64_t count : {10U, 1000U, 100000U}) {
        for (const Entries& entries : {consecutive(count), scattered(count)}) {
            Chains chains;
            for (const auto& entry : entries) chains.add(*entry);
            long all = 0;
            int most = 0;
            for (const auto& entry : entries) {
                const int steps = stepsTo(chains, entry->hash);
                ASSERT_GE(steps, 1);
                all += steps;
                most = std::max(most, steps);
            }
            EXPECT_LE(static_cast<double>(all) / static_cast<double>(count), 2) << count;
            EXPECT_LE(most, 16) << count;
            chains.free();
        }
    }
}

// One insertion moves the entries of one chain, never all of them.
TEST(HashChains, GrowALittleAtATime) {
    Entries entries = scattered(20000);
    Chains chains;
    std::size_t most = 0;
    for (std::size_t count = 0; count < entries.size(); ++count) {
        std::vector<Entry*> before;
        // All links after every insertion would take too long to look at.
        const bool looks = count % 97 == 0 || std::has_single_bit(count);
        if (looks) {
            for (std::size_t i = 0; i < count; ++i) before.push_back(entries[i]->next);
        }
        chains.add(*entries[count]);
        std::size_t relinked = 0;
        for (std::size_t i = 0; i < before.size(); ++i) relinked += entries[i]->next != before[i];
        most = std::max(most, relinked);
    }
    EXPECT_LE(most, 16u);
    EXPECT_GT(most, 0u);
    chains.free();
}

TEST(HashChains, FindWhatIsThereAndNothingElse) {
    Entries entries = scattered(3000);
    Chains chains;
    for (const auto& entry : entries) chains.add(*entry);
    for (std::size_t i = 0; i < entries.size(); i += 3) chains.remove(*entries[i]);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(stepsTo(chains, entries[i]->hash) > 0, i % 3 != 0);
    }
    Entry replacement(entries[1]->hash);
    chains.replace(*entries[1], replacement);
    EXPECT_EQ(*Chains::find(chains.begin(replacement.hash), replacement.hash), &replacement);
    chains.free();
}

TEST(HashChains, EqualHashesKeepTheirOrder) {
    std::vector<Entry> alike(5, Entry(77));
    const Entries others = scattered(1000);
    Chains chains;
    for (std::size_t i = 0; i < others.size(); ++i) {
        if (i % 200 == 0) chains.add(alike[i / 200]);
        chains.add(*others[i]);
    }
    Entry** link = chains.begin(77);
    for (Entry& entry : alike) {
        link = Chains::find(link, 77);
        EXPECT_EQ(*link, &entry);
        link = &(*link)->next;
    }
    chains.free();
}

TEST(HashChains, GiveOutEachEntryOnceInBoundedSteps) {
    Entries entries = scattered(1000);
    Chains chains;
    for (const auto& entry : entries) chains.add(*entry);
    std::vector<Entry*> taken;
    for (int calls = 0; chains.hasChains(); ++calls) {
        ASSERT_LT(calls, 1000);
        std::size_t steps = 10;
        const std::size_t before = taken.size();
        while (Entry* entry = chains.takeAny(steps)) taken.push_back(entry);
        EXPECT_LE(taken.size() - before, 10u);
    }
    chains.free();
    std::sort(taken.begin(), taken.end());
    EXPECT_EQ(std::unique(taken.begin(), taken.end()) - taken.begin(), 1000);
}

}  // namespace

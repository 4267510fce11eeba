// The map by itself, without a platform, so that the thread sanitizer sees all of it.
#include "src/cache/shared_map.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace {

// Counts how many of its kind there are.
class Item {
  public:
    explicit Item(int itemNumber) : number(itemNumber) { ++alive; }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() {
        if (onDestruction) onDestruction();
        ++destroyed;
        --alive;
    }

    const int number;
    std::function<void()> onDestruction;
    static inline std::atomic<long> alive{0};
    static inline thread_local long destroyed = 0;
};

using Reference = std::shared_ptr<Item>;

Reference item(int number) { return std::make_shared<Item>(number); }

// A key whose comparisons a test can look into.
struct WatchedKey {
    int number;
    std::function<void()> onComparison;
};

struct Identity {
    // Few hashes, so that keys share chains.
    static std::size_t hash(int key) { return static_cast<std::size_t>(key % 7); }
    static std::size_t hash(const WatchedKey& key) { return hash(key.number); }
    static std::size_t hash(const Reference& key) { return hash(key->number); }
    static bool equal(const Reference& left, int right) { return left->number == right; }
    static bool equal(const Reference& left, const Reference& right) { return left->number == right->number; }
    static bool equal(const Reference& left, const WatchedKey& right) {
        right.onComparison();
        return left->number == right.number;
    }
};

struct WideIdentity : Identity {
    static std::size_t hash(const Reference& key) { return static_cast<std::size_t>(key->number); }
};

using Map = zelka::SharedMap<Reference, Identity>;

void put(Map& map, int key, int value, std::uint64_t group = Map::kNoGroup) {
    map.store(item(key), item(value), group);
}

void empty(Map& map) { static_cast<void>(map.clear()); }

// The value's number, 0 for none.
int at(const Map& map, int key) {
    const Reference value = map.value(key);
    return value ? value->number : 0;
}

template <class Work>
void onManyThreads(int rounds, Work work) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([=] {
            std::mt19937 random(static_cast<unsigned>(thread));
            for (int round = 0; round < rounds; ++round) work(thread, random);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST(SharedMap, HoldsTheLastValueOfEachKey) {
    Map map;
    EXPECT_EQ(at(map, 1), 0);
    for (int key = 1; key <= 100; ++key) put(map, key, 1000 + key);
    for (int key = 1; key <= 100; key += 2) put(map, key, 2000 + key);
    for (int key = 1; key <= 100; ++key) EXPECT_EQ(at(map, key), (key % 2 == 1 ? 2000 : 1000) + key);
    empty(map);
    for (int key = 1; key <= 100; ++key) EXPECT_EQ(at(map, key), 0);
}

TEST(SharedMap, RemovesFromTheFrontTheMiddleAndTheEndOfAChain) {
    for (int removed : {7, 14, 21}) {
        Map map;
        for (int key : {7, 14, 21}) put(map, key, key);
        map.remove(removed);
        map.remove(28);
        for (int key : {7, 14, 21}) EXPECT_EQ(at(map, key), key == removed ? 0 : key);
        empty(map);
    }
}

TEST(SharedMap, RemovesTheEntriesOfAGroupOneByOne) {
    Map map;
    for (int key = 1; key <= 20; ++key) put(map, key, key, key % 2 == 0 ? 5 : 6);
    for (int left = 20; left >= 10; --left) {
        int present = 0;
        for (int key = 1; key <= 20; ++key) present += at(map, key) != 0;
        EXPECT_EQ(present, left);
        map.removeOneOf(5);
    }
    map.removeOneOf(5);
    map.removeOneOf(7);
    for (int key = 1; key <= 20; ++key) EXPECT_EQ(at(map, key), key % 2 == 0 ? 0 : key);
    empty(map);
}

TEST(SharedMap, AnEntryIsInTheGroupThatItWasLastStoredWith) {
    Map map;
    put(map, 1, 1, 5);
    put(map, 1, 2, 6);
    map.removeOneOf(5);
    EXPECT_EQ(at(map, 1), 2);
    put(map, 1, 3);
    map.removeOneOf(6);
    EXPECT_EQ(at(map, 1), 3);
    put(map, 1, 4, 5);
    empty(map);
    map.removeOneOf(5);
    put(map, 1, 5, 6);
    map.remove(1);
    map.removeOneOf(6);
    EXPECT_EQ(at(map, 1), 0);
    empty(map);
}

TEST(SharedMap, LetsEverythingGo) {
    const long before = Item::alive;
    {
        Map map;
        for (int key = 1; key <= 100; ++key) put(map, key, key);
        EXPECT_EQ(Item::alive - before, 200);
        for (int key = 1; key <= 100; ++key) put(map, key, key, 3);
        EXPECT_EQ(Item::alive - before, 200);
        map.remove(50);
        EXPECT_EQ(Item::alive - before, 198);
        map.removeOneOf(3);
        EXPECT_EQ(Item::alive - before, 196);
        empty(map);
    }
    EXPECT_EQ(Item::alive, before);
}

TEST(SharedMap, AValueStaysWithItsReader) {
    Map map;
    put(map, 1, 5);
    const Reference value = map.value(1);
    empty(map);
    EXPECT_EQ(value->number, 5);
    EXPECT_EQ(value.use_count(), 1);
}

TEST(SharedMap, WhoClearsSaysWhenTheContentsAreDestroyed) {
    constexpr long kEntries = 10000;
    Map map;
    for (int key = 0; key < kEntries; ++key) put(map, key, key);
    const long before = Item::alive;
    long most = 0;
    {
        Map::Contents contents = map.clear();
        EXPECT_EQ(Item::alive, before);
        bool more = true;
        for (long left = kEntries; more && left > 0; --left) {
            const long alive = Item::alive;
            more = contents.destroySome(100);
            most = std::max(most, alive - Item::alive);
        }
        EXPECT_FALSE(more);
    }
    EXPECT_EQ(Item::alive, before - 2 * kEntries);
    EXPECT_EQ(most, 200);  // a key and a value each
}

// Besides its own entry, an operation destroys at most those that it looks at (of equal hash) while others take them
// out.
TEST(SharedMap, NoOtherOperationDestroysMoreThanItLooksAt) {
    constexpr int kKeys = 70;
    constexpr long kMost = 2 * (kKeys / 7 + 1);
    Map map;
    std::atomic<bool> tooMany{false};
    onManyThreads(20000, [&](int, std::mt19937& random) {
        const int key = static_cast<int>(random() % kKeys);
        const auto group = static_cast<std::uint64_t>(1 + key % 3);
        const long before = Item::destroyed;
        switch (random() % 4) {
            case 0:
                put(map, key, key, group);
                break;
            case 1:
                map.remove(key);
                break;
            case 2:
                map.removeOneOf(group);
                break;
            default:
                at(map, key);
        }
        if (Item::destroyed - before > kMost) tooMany = true;
    });
    EXPECT_FALSE(tooMany);
    empty(map);
}

TEST(SharedMap, ADestructorMayUseTheMap) {
    Map map;
    put(map, 7, 7);
    int found = 0;
    for (int round = 0; round < 4; ++round) {
        Reference calling = item(14);
        calling->onDestruction = [&] {
            found += at(map, 7);
            put(map, 21, 21);
        };
        map.store(item(14), std::move(calling), 9);
    }
    EXPECT_EQ(found, 3 * 7);
    map.removeOneOf(9);
    EXPECT_EQ(found, 4 * 7);
    empty(map);
}

TEST(SharedMap, AComparisonMayUseTheMap) {
    Map map;
    for (int key : {7, 14, 21}) put(map, key, key);
    int comparisons = 0;
    const WatchedKey last{21, [&] {
                              ++comparisons;
                              put(map, 28, 28);
                              EXPECT_EQ(at(map, 28), 28);
                          }};
    EXPECT_EQ(map.value(last)->number, 21);
    map.remove(last);
    EXPECT_EQ(at(map, 21), 0);
    EXPECT_GE(comparisons, 6);
    empty(map);
}

// What is compared may be taken out during the comparison, and the chain with it.
TEST(SharedMap, FindsItsKeyWhenTheOnesBeforeItGo) {
    for (int round = 0; round < 2; ++round) {
        Map map;
        for (int key : {7, 14, 21}) put(map, key, key);
        const WatchedKey last{21, [&] {
                                  map.remove(7);
                                  if (round == 1 && at(map, 14) != 0) {
                                      empty(map);
                                      for (int key : {28, 21}) put(map, key, key);
                                  }
                              }};
        const Reference found = map.value(last);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->number, 21);
        empty(map);
    }
}

// A reader that is stopped in the middle of a look-up keeps what it looks at, and nothing else.
TEST(SharedMap, AStalledReaderKeepsOneEntry) {
    Map map;
    for (int key = 1; key <= 100; ++key) put(map, key, key);
    std::promise<void> stalled, released;
    std::thread reader([&, mayGoOn = released.get_future().share()] {
        bool first = true;
        const WatchedKey key{7, [&] {
                                 if (std::exchange(first, false)) stalled.set_value();
                                 mayGoOn.wait();
                             }};
        EXPECT_EQ(map.value(key)->number, 7);
    });
    stalled.get_future().wait();
    const long before = Item::alive;
    long most = 0;
    for (int round = 0; round < 50; ++round) {
        for (int key = 1; key <= 100; ++key) put(map, key, key);
        most = std::max(most, Item::alive - before);
    }
    released.set_value();
    reader.join();
    EXPECT_EQ(most, 2);
    EXPECT_EQ(Item::alive, before);
    empty(map);
}

// Readers that take turns without a pause are no reason to keep what was replaced.
TEST(SharedMap, OverlappingReadersKeepNoMoreThanTheyLookAt) {
    constexpr int kReaders = 4;
    constexpr int kEntries = 1000;
    Map map;
    for (int key = 0; key < kEntries; ++key) put(map, key, key);
    const long before = Item::alive;
    std::atomic<bool> stop{false};
    std::vector<std::thread> readers;
    for (unsigned reader = 0; reader < kReaders; ++reader) {
        readers.emplace_back([&, reader] {
            std::mt19937 random(reader);
            while (!stop) at(map, static_cast<int>(random() % kEntries));
        });
    }
    long most = 0;
    std::mt19937 random(kReaders);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same keys in every run
    for (int round = 0; round < 20000; ++round) {
        const int key = static_cast<int>(random() % kEntries);
        put(map, key, key);
        most = std::max(most, Item::alive - before);
    }
    stop = true;
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(Item::alive, before);
    EXPECT_LE(most, 2 * 2 * kReaders);  // each may hold an entry, and the one before it for a moment
    empty(map);
}

TEST(SharedMap, ThreadsNeverSeeAnotherKeysValue) {
    const long before = Item::alive;
    {
        Map map;
        std::atomic<int> wrong{0};
        onManyThreads(20000, [&](int, std::mt19937& random) {
            const int key = 1 + static_cast<int>(random() % 32);
            switch (random() % 8) {
                case 0:
                case 1:
                    put(map, key, key, static_cast<std::uint64_t>(key % 5));
                    break;
                case 2:
                    map.remove(key);
                    break;
                case 3:
                    map.removeOneOf(static_cast<std::uint64_t>(1 + key % 4));
                    break;
                case 4:
                    if (random() % 64 == 0) empty(map);
                    break;
                default:
                    if (int found = at(map, key); found != 0 && found != key) ++wrong;
            }
        });
        EXPECT_EQ(wrong, 0);
        empty(map);
    }
    EXPECT_EQ(Item::alive, before);
}

TEST(SharedMap, NoStoreAndNoRemovalIsLost) {
    Map map;
    onManyThreads(2000, [&](int thread, std::mt19937& random) {
        const int key = 1 + static_cast<int>(random() % 500) * 4 + thread;
        put(map, key, key, static_cast<std::uint64_t>(key));
        if (at(map, key) != key) ADD_FAILURE() << "lost " << key;
        if (random() % 2 == 0) {
            if (random() % 2 == 0) {
                map.remove(key);
            } else {
                map.removeOneOf(static_cast<std::uint64_t>(key));
            }
            if (at(map, key) != 0) ADD_FAILURE() << "still there " << key;
        }
    });
    empty(map);
}

// However many store the same new key at the same time, one entry comes of it.
TEST(SharedMap, AKeyIsThereOnce) {
    constexpr int kKeys = 5000;
    const long before = Item::alive;
    zelka::SharedMap<Reference, WideIdentity> map;
    std::atomic<int> arrived{0};
    const auto storeAll = [&] {
        for (int key = 0; key < kKeys; ++key) {
            const Reference first = item(key), second = item(key);
            ++arrived;
            for (int turns = 0; arrived < 2 * (key + 1); ++turns) {
                if (turns > 10000) std::this_thread::yield();
            }
            map.store(first, second);
        }
    };
    std::thread other(storeAll);
    storeAll();
    other.join();
    EXPECT_EQ(Item::alive - before, 2 * kKeys);
    static_cast<void>(map.clear());
}

}  // namespace

// The map by itself, without a platform, so that the thread sanitizer sees all of it.
#include "src/cache/lock_free_map.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace {

// Counts how many of its kind there are, and is marked when it goes.
class Item {
  public:
    explicit Item(int itemNumber) : number(itemNumber) { ++alive; }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() { --alive; }

    const int number;
    static inline std::atomic<long> alive{0};
};

using Reference = std::shared_ptr<Item>;

struct Identity {
    // Few hashes, so that keys share chains.
    static std::size_t hash(int key) { return static_cast<std::size_t>(key % 7); }
    static std::size_t hash(const Reference& key) { return hash(key->number); }
    static bool equal(const Reference& left, int right) { return left->number == right; }
    static bool equal(const Reference& left, const Reference& right) { return left->number == right->number; }
};

using Map = LockFreeMap<Reference, Identity>;

Reference item(int number) { return std::make_shared<Item>(number); }

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

TEST(LockFreeMap, HoldsTheLastValueOfEachKey) {
    Map map;
    EXPECT_EQ(at(map, 1), 0);
    for (int key = 1; key <= 100; ++key) map.store(item(key), item(1000 + key));
    for (int key = 1; key <= 100; key += 2) map.store(item(key), item(2000 + key));
    for (int key = 1; key <= 100; ++key) EXPECT_EQ(at(map, key), (key % 2 == 1 ? 2000 : 1000) + key);
    map.clear();
}

TEST(LockFreeMap, RemovesFromTheFrontTheMiddleAndTheEndOfAChain) {
    for (int removed : {7, 14, 21}) {
        Map map;
        for (int key : {7, 14, 21}) map.store(item(key), item(key));
        map.remove(removed);
        map.remove(28);
        for (int key : {7, 14, 21}) EXPECT_EQ(at(map, key), key == removed ? 0 : key);
        map.clear();
    }
}

TEST(LockFreeMap, RemovesOneOfSeveralThatThePredicateTakes) {
    Map map;
    for (int key = 1; key <= 20; ++key) map.store(item(key), item(key % 2 + 1));
    map.removeFirst([](const Reference& value) { return value->number == 2; });
    map.removeFirst([](const Reference& value) { return value->number == 3; });
    int left = 0;
    for (int key = 1; key <= 20; ++key) left += at(map, key) != 0;
    EXPECT_EQ(left, 19);
    map.clear();
}

TEST(LockFreeMap, LetsEverythingGo) {
    const long before = Item::alive;
    {
        Map map;
        for (int key = 1; key <= 100; ++key) map.store(item(key), item(key));
        EXPECT_EQ(Item::alive - before, 200);
        for (int key = 1; key <= 100; ++key) map.store(item(key), item(key));
        EXPECT_EQ(Item::alive - before, 200);
        map.remove(50);
        EXPECT_EQ(Item::alive - before, 198);
        map.clear();
    }
    EXPECT_EQ(Item::alive, before);
}

TEST(LockFreeMap, AValueStaysWithItsReader) {
    Map map;
    map.store(item(1), item(5));
    const Reference value = map.value(1);
    map.clear();
    EXPECT_EQ(value->number, 5);
    EXPECT_EQ(value.use_count(), 1);
}

TEST(LockFreeMap, ThreadsNeverSeeAnotherKeysValue) {
    const long before = Item::alive;
    {
        Map map;
        std::atomic<int> wrong{0};
        onManyThreads(20000, [&](int, std::mt19937& random) {
            const int key = 1 + static_cast<int>(random() % 32);
            switch (random() % 8) {
                case 0:
                case 1:
                    map.store(item(key), item(key));
                    break;
                case 2:
                    map.remove(key);
                    break;
                case 3:
                    map.removeFirst([&](const Reference& value) { return value->number == key; });
                    break;
                case 4:
                    if (random() % 64 == 0) map.clear();
                    break;
                default:
                    if (int found = at(map, key); found != 0 && found != key) ++wrong;
            }
        });
        EXPECT_EQ(wrong, 0);
        map.clear();
    }
    EXPECT_EQ(Item::alive, before);
}

TEST(LockFreeMap, NoStoreAndNoRemovalIsLost) {
    Map map;
    onManyThreads(2000, [&](int thread, std::mt19937& random) {
        const int key = 1 + static_cast<int>(random() % 500) * 4 + thread;
        map.store(item(key), item(key));
        if (at(map, key) != key) ADD_FAILURE() << "lost " << key;
        if (random() % 2 == 0) {
            map.remove(key);
            if (at(map, key) != 0) ADD_FAILURE() << "still there " << key;
        }
    });
    map.clear();
}

}  // namespace

// The map behind the picture cache beside the standard library's own under a mutex: what looking up, replacing and
// removing cost with how many entries and threads, how long a single operation may take, and how much of what was
// replaced waits for its destruction.
#include "src/cache/shared_map.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <mutex>
#include <random>
#include <shared_mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace bench {
namespace {

// Counted like the platform's objects, by an atomic number.
struct Item {
    explicit Item(int itemNumber) : number(itemNumber) { ++alive; }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() { --alive; }

    int number;
    static inline std::atomic<long> alive{0};
};

using Reference = std::shared_ptr<Item>;

struct Identity {
    static std::size_t hash(int key) { return static_cast<std::size_t>(key); }
    static std::size_t hash(const Reference& key) { return hash(key->number); }
    static bool equal(const Reference& left, int right) { return left->number == right; }
    static bool equal(const Reference& left, const Reference& right) { return left->number == right->number; }
};

class Ours {
  public:
    static constexpr const char* kName = "SharedMap";

    Reference value(int key) { return map_.value(key); }
    void store(Reference key, Reference value, int group) {
        map_.store(std::move(key), std::move(value), static_cast<std::uint64_t>(group));
    }
    void removeOneOf(int group) { map_.removeOneOf(static_cast<std::uint64_t>(group)); }
    void clear() { static_cast<void>(map_.clear()); }

  private:
    zelka::SharedMap<Reference, Identity> map_;
};

// What is removed is destroyed outside the lock.
template <class Lock, class ReadLock>
class Standard {
  public:
    static const char* const kName;

    Reference value(int key) {
        ReadLock lock(mutex_);
        auto found = map_.find(key);
        return found != map_.end() ? found->second.value : Reference();
    }
    void store(Reference key, Reference value, int group) {
        Stored stored{std::move(value), group};
        Lock lock(mutex_);
        auto [place, isNew] = map_.try_emplace(key);
        if (!isNew) leaveGroup(key, place->second.group);
        groups_.emplace(group, place->first);
        std::swap(place->second, stored);
    }
    void removeOneOf(int group) {
        typename Values::node_type value;
        typename Groups::node_type member;
        Lock lock(mutex_);
        member = groups_.extract(group);
        if (!member.empty()) value = map_.extract(member.mapped());
    }
    void clear() {
        Values values;
        Groups groups;
        Lock lock(mutex_);
        values.swap(map_);
        groups.swap(groups_);
    }

  private:
    struct Stored {
        Reference value;
        int group = 0;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const auto& key) const { return Identity::hash(key); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const Reference& left, const auto& right) const { return Identity::equal(left, right); }
        bool operator()(int left, const Reference& right) const { return Identity::equal(right, left); }
    };
    using Values = std::unordered_map<Reference, Stored, Hash, Equal>;
    using Groups = std::unordered_multimap<int, Reference>;

    void leaveGroup(const Reference& key, int group) {
        auto [first, end] = groups_.equal_range(group);
        groups_.erase(std::find_if(first, end, [&](const auto& member) { return Equal()(member.second, key); }));
    }

    typename Lock::mutex_type mutex_;
    Values map_;
    Groups groups_;
};

using UnderMutex = Standard<std::lock_guard<std::mutex>, std::lock_guard<std::mutex>>;
using UnderSharedMutex = Standard<std::unique_lock<std::shared_mutex>, std::shared_lock<std::shared_mutex>>;
template <>
const char* const UnderMutex::kName = "unordered_map, mutex";
template <>
const char* const UnderSharedMutex::kName = "unordered_map, shared_mutex";

Reference item(int number) { return std::make_shared<Item>(number); }

// Two texts lead to each contact.
int groupOf(int key) { return key / 2 + 1; }

template <class Map>
void put(Map& map, int key) {
    map.store(item(key), item(key), groupOf(key));
}

// Shared by the threads of the running benchmark.
template <class Map>
std::unique_ptr<Map> theMap;

template <class Map>
void fill(const benchmark::State& state) {
    theMap<Map> = std::make_unique<Map>();
    for (int key = 0; key < state.range(0); ++key) put(*theMap<Map>, key);
}

template <class Map>
void drop(const benchmark::State&) {
    theMap<Map>->clear();
    theMap<Map>.reset();
}

class Keys {
  public:
    explicit Keys(const benchmark::State& state)
        : random_(static_cast<unsigned>(state.thread_index())), all_(0, static_cast<int>(state.range(0)) - 1) {}
    int next() { return all_(random_); }
    bool oneIn(unsigned count) { return random_() % count == 0; }

  private:
    std::minstd_rand random_;
    std::uniform_int_distribution<int> all_;
};

template <class Map>
void hit(benchmark::State& state) {
    Keys keys(state);
    for (auto _ : state) benchmark::DoNotOptimize(theMap<Map>->value(keys.next()));
}

template <class Map>
void replace(benchmark::State& state) {
    Keys keys(state);
    for (auto _ : state) put(*theMap<Map>, keys.next());
}

// And puts another there, so that the map stays as it is.
template <class Map>
void removeOne(benchmark::State& state) {
    Keys keys(state);
    for (auto _ : state) {
        const int key = keys.next();
        theMap<Map>->removeOneOf(groupOf(key));
        put(*theMap<Map>, key);
    }
}

template <class Map>
void mixedStep(Map& map, Keys& keys) {
    const int key = keys.next();
    if (keys.oneIn(10)) {
        put(map, key);
    } else {
        benchmark::DoNotOptimize(map.value(key));
    }
}

template <class Map>
void mixed(benchmark::State& state) {
    Keys keys(state);
    for (auto _ : state) mixedStep(*theMap<Map>, keys);
}

// The slowest operations of all threads, and the most entries that were destroyed too late. Each thread looks at the
// clock around each operation.
template <class Map>
void slowest(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const long live = Item::alive;
    Keys keys(state);
    std::vector<double> times;
    long waiting = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        mixedStep(*theMap<Map>, keys);
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
        waiting = std::max(waiting, Item::alive - live);
    }
    std::sort(times.begin(), times.end());
    using benchmark::Counter;
    state.counters["us_p99.99"] = Counter(times[times.size() - 1 - times.size() / 10000], Counter::kAvgThreads);
    state.counters["us_max"] = Counter(times.back(), Counter::kAvgThreads);
    state.counters["waiting"] = Counter(static_cast<double>(waiting), Counter::kAvgThreads);
}

constexpr int kSome = 10000;

template <class Map>
benchmark::internal::Benchmark* row(const std::string& what, void (*body)(benchmark::State&)) {
    return benchmark::RegisterBenchmark((what + "/" + Map::kName).c_str(), body)
        ->Setup(fill<Map>)
        ->Teardown(drop<Map>)
        ->UseRealTime()
        ->Threads(1)
        ->Threads(2)
        ->Threads(4)
        ->Threads(8);
}

template <class Map>
void registerRows() {
    row<Map>("Hit", hit<Map>)->Arg(100)->Arg(kSome)->Arg(10 * kSome);
    row<Map>("Replace", replace<Map>)->Arg(kSome);
    row<Map>("Remove one of a contact's, put another", removeOne<Map>)->Arg(100)->Arg(kSome)->Arg(10 * kSome);
    row<Map>("Nine hits, one replaced", mixed<Map>)->Arg(kSome);
    row<Map>("Slowest of nine hits, one replaced", slowest<Map>)->Arg(kSome)->Iterations(300000);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    bench::registerRows<bench::Ours>();
    bench::registerRows<bench::UnderMutex>();
    bench::registerRows<bench::UnderSharedMutex>();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

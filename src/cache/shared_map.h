// A map that any number of threads read and change at the same time.
#pragma once

#include <atomic>

#include "src/cache/hash_chains.h"
#include "src/platform/mutex.h"

namespace zelka {

// Reference owns what it refers to, can be copied, and is false when it refers to nothing. Identity tells keys apart:
// `std::size_t hash(key)` and `bool equal(reference, key)`, for references as keys and for whatever else lookups name.
//
// One mutex guards the table. It is held for a few memory accesses, whatever the map's size, and never while a key is
// hashed or compared or anything is copied or destroyed: all of that may call code that comes back here. So a thread
// waits only if another was interrupted just there; it then sleeps, which lets the other run.
//
// What is taken out is destroyed by the thread that took it out or, if others are using it at that moment, by the last
// of them. Meant for static storage: there is no destructor.
template <class Reference, class Identity>
class SharedMap {
    struct Entry {
        Entry(std::uint64_t keyHash, Reference entryKey, Reference entryValue, std::uint64_t entryGroup)
            : hash(keyHash), key(std::move(entryKey)), value(std::move(entryValue)), group(entryGroup) {}

        const std::uint64_t hash;
        Entry* nextByKey = nullptr;
        std::uint64_t generation = 0;  // the map's, while the entry is in it
        std::atomic<unsigned> holders{1};
        const Reference key;
        const Reference value;
        const std::uint64_t group;
        Entry* nextInGroup = nullptr;
    };

    // Keeps an entry from being destroyed.
    class Held {
      public:
        Held() = default;
        explicit Held(Entry& entry) : entry_(&entry) { entry.holders.fetch_add(1, std::memory_order_relaxed); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        Held(Held&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
        Held& operator=(Held&& other) noexcept {
            std::swap(entry_, other.entry_);
            return *this;
        }
        ~Held() {
            if (entry_ == nullptr || entry_->holders.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
            delete entry_;  // NOLINT(clang-analyzer-cplusplus.NewDelete): it does not follow the count of holders
        }

        // Takes over a hold that somebody else has.
        static Held adopt(Entry* entry) {
            Held held;
            held.entry_ = entry;
            return held;
        }
        // Leaves the hold to somebody else.
        void leak() { entry_ = nullptr; }

        explicit operator bool() const { return entry_ != nullptr; }
        Entry& operator*() const { return *entry_; }
        Entry* operator->() const { return entry_; }

      private:
        Entry* entry_ = nullptr;
    };

    using ByKey = HashChains<Entry, &Entry::nextByKey, &Entry::hash>;
    using ByGroup = HashChains<Entry, &Entry::nextInGroup, &Entry::group>;

  public:
    static constexpr std::uint64_t kNoGroup = 0;

    // What was in a map when it was cleared. Destroys the rest when it goes.
    class [[nodiscard]] Contents {
      public:
        explicit Contents(ByKey entries) : entries_(entries) {}
        Contents(const Contents&) = delete;
        Contents& operator=(const Contents&) = delete;
        Contents(Contents&& other) noexcept : entries_(std::exchange(other.entries_, ByKey())) {}
        Contents& operator=(Contents&&) = delete;
        ~Contents() {
            while (destroySome(kMany)) continue;
            entries_.free();
        }

        // Destroys at most so many entries. Whether there may be more.
        bool destroySome(std::size_t limit) {
            while (Entry* entry = entries_.takeAny(limit)) Held::adopt(entry);
            return entries_.hasChains();
        }

      private:
        static constexpr std::size_t kMany = 1024;

        ByKey entries_;
    };

    // A reference of the caller's own to the value, or none.
    template <class Key>
    Reference value(const Key& key) const {
        Held entry = find(hashOf(key), key, [] {});
        return entry ? entry->value : Reference();
    }

    // Puts the value in the place of the one that was there. The entries of a group other than kNoGroup can be removed
    // by its number, one at a time.
    void store(Reference key, Reference value, std::uint64_t group = kNoGroup) {
        std::uint64_t hash = hashOf(key);
        Held added = Held::adopt(new Entry(hash, std::move(key), std::move(value), group));
        while (true) {
            Held known = find(hash, added->key, [&] { insert(*added); });
            if (!known || replace(*known, *added)) return;
        }
    }

    template <class Key>
    void remove(const Key& key) {
        if (Held entry = find(hashOf(key), key, [] {})) takeOut(*entry);
    }

    // Removes one entry of the group, if there is one.
    void removeOneOf(std::uint64_t group) {
        Held gone;  // destroyed after the lock
        Mutex::Lock lock(mutex_);
        Entry** link = byGroup_.begin(group);
        if (link == nullptr || *(link = ByGroup::find(link, group)) == nullptr) return;
        Entry& entry = **link;
        byKey_.remove(entry);
        gone = leave(entry);
    }

    // Empties the map in constant time and hands over what was in it: the caller says when that is destroyed.
    Contents clear() {
        ByGroup groups;
        Contents contents = takeAll(groups);
        groups.free();
        return contents;
    }

  private:
    // Numbers that follow one another spread evenly as they are. Hashes that come from addresses differ further up.
    template <class Key>
    static std::uint64_t hashOf(const Key& key) {
        std::uint64_t hash = Identity::hash(key);
        return hash ^ hash >> 7;
    }

    // The entry with the key. When there is none, calls `whenMissing` while it holds the mutex.
    template <class Key, class WhenMissing>
    Held find(std::uint64_t hash, const Key& key, WhenMissing whenMissing) const {
        Held entry;
        do {
            entry = next(hash, entry, whenMissing);
        } while (entry && !Identity::equal(entry->key, key));
        return entry;
    }

    // The first entry with the hash, or the one after `last`, unless that was taken out meanwhile.
    template <class WhenMissing>
    Held next(std::uint64_t hash, const Held& last, WhenMissing whenMissing) const {
        Mutex::Lock lock(mutex_);
        bool goesOn = last && last->generation == generation_;
        Entry** link = goesOn ? &last->nextByKey : byKey_.begin(hash);
        if (link != nullptr) link = ByKey::find(link, hash);
        if (link != nullptr && *link != nullptr) return Held(**link);
        whenMissing();
        return {};
    }

    // False, with nothing changed, when the old entry has been taken out.
    bool replace(Entry& old, Entry& added) {
        Held gone;
        Mutex::Lock lock(mutex_);
        if (old.generation != generation_) return false;
        byKey_.replace(old, added);
        join(added);
        gone = leave(old);
        return true;
    }

    void takeOut(Entry& entry) {
        Held gone;
        Mutex::Lock lock(mutex_);
        if (entry.generation != generation_) return;
        byKey_.remove(entry);
        gone = leave(entry);
    }

    Contents takeAll(ByGroup& groups) {
        Mutex::Lock lock(mutex_);
        ++generation_;
        groups = std::exchange(byGroup_, ByGroup());
        return Contents(std::exchange(byKey_, ByKey()));
    }

    // These run under the mutex.

    void insert(Entry& entry) {
        byKey_.add(entry);
        join(entry);
    }

    // The map has a hold of its own on each entry in it.
    void join(Entry& entry) {
        Held(entry).leak();
        entry.generation = generation_;
        if (entry.group != kNoGroup) byGroup_.add(entry);
    }

    // The map's hold is the caller's now.
    Held leave(Entry& entry) {
        entry.generation = 0;
        if (entry.group != kNoGroup) byGroup_.remove(entry);
        return Held::adopt(&entry);
    }

    // Guards all that follows, the entries' links and their generation.
    mutable Mutex mutex_;
    mutable ByKey byKey_;
    ByGroup byGroup_;
    std::uint64_t generation_ = 1;  // counts how often the map was cleared
};

}  // namespace zelka

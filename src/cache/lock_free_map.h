// A map that any number of threads read and change at the same time, without a lock and without waiting for each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "src/cache/reclaimer.h"

// Reference owns what it refers to, can be copied, and is false when it refers to nothing. Identity tells keys apart:
// `std::size_t hash(key)` and `bool equal(reference, key)`, for references as keys and for whatever else lookups name.
//
// A bucket is a chain of entries that never change once they can be found: a change makes the entries anew that stand
// before the changed one, and swaps the head. So each change of one key happens at once for everybody, or not at all;
// clear() goes from bucket to bucket.
template <class Reference, class Identity>
class LockFreeMap {
  public:
    // A reference of the caller's own to the value, or none.
    template <class Key>
    Reference value(const Key& key) const {
        Reclaimer::Reading reading(reclaimer_);
        std::size_t hash = Identity::hash(key);
        Entry* entry = find(bucketOf(hash).load(), hash, key);
        return entry != nullptr ? entry->value : Reference();
    }

    // Puts the value in the place of the one that was there.
    void store(Reference key, Reference value) {
        Reclaimer::Reading reading(reclaimer_);
        std::size_t hash = Identity::hash(key);
        auto* added = new Entry(hash, std::move(key), std::move(value));
        Bucket& bucket = bucketOf(hash);
        while (true) {
            Entry* first = bucket.load();
            if (swap(bucket, first, find(first, hash, added->key), added)) return;
        }
    }

    template <class Key>
    void remove(const Key& key) {
        std::size_t hash = Identity::hash(key);
        removeWhere(bucketOf(hash),
                    [&](const Entry& entry) { return entry.hash == hash && Identity::equal(entry.key, key); });
    }

    // Removes the first entry, in the map's own order, whose value the predicate takes; at most one.
    template <class Predicate>
    void removeFirst(Predicate takes) {
        for (Bucket& bucket : buckets_) {
            if (removeWhere(bucket, [&](const Entry& entry) { return takes(entry.value); })) return;
        }
    }

    void clear() {
        Reclaimer::Reading reading(reclaimer_);
        for (Bucket& bucket : buckets_) {
            if (bucket.load() != nullptr) retire(bucket.exchange(nullptr), nullptr);
        }
    }

  private:
    struct Entry : Retired {
        Entry(std::size_t entryHash, Reference entryKey, Reference entryValue)
            : Retired{&destroyEntry}, hash(entryHash), key(std::move(entryKey)), value(std::move(entryValue)) {}

        const std::size_t hash;
        const Reference key;
        const Reference value;
        Entry* next = nullptr;  // set before others can find the entry
    };

    using Bucket = std::atomic<Entry*>;

    // A few thousand contacts make chains of a few entries.
    static constexpr unsigned kBucketBits = 11;

    static void destroyEntry(Retired* entry) { delete static_cast<Entry*>(entry); }

    Bucket& bucketOf(std::size_t hash) const {
        // Fibonacci hashing: the hashes of numbers and of short texts differ in few bits.
        constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
        return buckets_[hash * kGoldenRatio >> (64 - kBucketBits)];
    }

    template <class Key>
    static Entry* find(Entry* chain, std::size_t hash, const Key& key) {
        while (chain != nullptr && !(chain->hash == hash && Identity::equal(chain->key, key))) chain = chain->next;
        return chain;
    }

    template <class Predicate>
    bool removeWhere(Bucket& bucket, Predicate takes) {
        Reclaimer::Reading reading(reclaimer_);
        while (true) {
            Entry* first = bucket.load();
            Entry* gone = first;
            while (gone != nullptr && !takes(*gone)) gone = gone->next;
            if (gone == nullptr) return false;
            if (swap(bucket, first, gone, nullptr)) return true;
        }
    }

    // Puts `added` into the chain and takes `gone` out of it, either of which may be missing. False, with nothing
    // changed, when the bucket has another chain by now.
    bool swap(Bucket& bucket, Entry* first, Entry* gone, Entry* added) {
        Entry* kept = gone != nullptr ? gone->next : first;
        Entry* chain = kept;
        for (Entry* entry = first; gone != nullptr && entry != gone; entry = entry->next) {
            auto* again = new Entry(entry->hash, entry->key, entry->value);
            again->next = chain;
            chain = again;
        }
        Entry* copies = chain;
        if (added != nullptr) {
            added->next = chain;
            chain = added;
        }
        Entry* expected = first;
        if (bucket.compare_exchange_strong(expected, chain)) {
            retire(first, kept);
            return true;
        }
        while (copies != kept) delete std::exchange(copies, copies->next);
        return false;
    }

    void retire(Entry* first, Entry* end) {
        while (first != end) reclaimer_.retire(std::exchange(first, first->next));
    }

    mutable Bucket buckets_[1U << kBucketBits]{};
    mutable Reclaimer reclaimer_;
};

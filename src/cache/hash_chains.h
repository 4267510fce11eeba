// Chains of entries by hash, the inside of a map. Whoever shares them between threads locks.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace zelka {

// An entry links its chain itself: `next` and `hash` name its members. Hashes should differ in their low bits. The
// table owns the chains' heads and no entries; it has no destructor, because it may be static: free() gives back what
// it owns.
//
// When there are as many entries as chains, the next entry adds one chain, which takes over half of an older one
// (linear hashing, Litwin 1980), so no insertion moves all entries at once. The table never shrinks.
template <class Entry, Entry* Entry::*next, const std::uint64_t Entry::*hash>
class HashChains {
  public:
    // Where the chain of the hash begins, or nothing while the table is empty. Equal hashes share a chain, and their
    // order in it stays.
    Entry** begin(std::uint64_t entryHash) { return chainCount_ == 0 ? nullptr : &chain(indexOf(entryHash)); }

    // The first place from `link` on that holds an entry of that hash; or the chain's end.
    static Entry** find(Entry** link, std::uint64_t entryHash) {
        while (*link != nullptr && (*link)->*hash != entryHash) link = &((*link)->*next);
        return link;
    }

    // Appends the entry to its chain.
    void add(Entry& entry) {
        if (entryCount_++ == chainCount_) grow();
        Entry** link = begin(entry.*hash);
        while (*link != nullptr) link = &((*link)->*next);
        append(link, entry);
    }

    // Takes the entry out, which must be in the table.
    void remove(const Entry& entry) {
        Entry** link = linkTo(entry);
        *link = entry.*next;
        --entryCount_;
    }

    // Puts an entry of the same hash into the other's place.
    void replace(const Entry& old, Entry& entry) {
        Entry** link = linkTo(old);
        entry.*next = old.*next;
        *link = &entry;
    }

    // Takes any entry out; nothing when `steps`, which it counts down, are used up or the table is empty. From the
    // first call on, the table is good for nothing else.
    Entry* takeAny(std::size_t& steps) {
        while (chainCount_ > 0 && steps > 0) {
            --steps;
            Entry*& first = chain(chainCount_ - 1);
            if (first != nullptr) return std::exchange(first, first->*next);
            if (--chainCount_ % kBlockSize == 0) delete[] blocks_[--blockCount_];
        }
        return nullptr;
    }

    bool hasChains() const { return chainCount_ > 0; }

    // Gives the chains' heads back. The table is as new.
    void free() {
        for (std::size_t block = 0; block < blockCount_; ++block) delete[] blocks_[block];
        delete[] blocks_;
        *this = HashChains();
    }

  private:
    static constexpr std::size_t kBlockSize = 64;

    // Of the last power of two chains, those that have been split already are told apart by one bit more.
    std::size_t indexOf(std::uint64_t entryHash) const {
        std::size_t whole = std::bit_floor(chainCount_);
        auto index = static_cast<std::size_t>(entryHash & (2 * whole - 1));
        return index < chainCount_ ? index : index - whole;
    }

    Entry*& chain(std::size_t index) { return blocks_[index / kBlockSize][index % kBlockSize]; }

    Entry** linkTo(const Entry& entry) {
        Entry** link = begin(entry.*hash);
        while (*link != &entry) link = &((*link)->*next);
        return link;
    }

    static Entry** append(Entry** link, Entry& entry) {
        entry.*next = nullptr;
        *link = &entry;
        return &(entry.*next);
    }

    void grow() {
        if (chainCount_ == blockCount_ * kBlockSize) addBlock();
        std::size_t added = chainCount_++;
        if (added > 0) split(added - std::bit_floor(added), added);
    }

    void split(std::size_t from, std::size_t to) {
        Entry* entry = std::exchange(chain(from), nullptr);
        Entry** ends[] = {&chain(from), &chain(to)};
        while (entry != nullptr) {
            Entry* following = entry->*next;
            Entry**& end = ends[indexOf(entry->*hash) == to];
            end = append(end, *entry);
            entry = following;
        }
    }

    void addBlock() {
        if (blockCount_ == blockRoom_) {
            std::size_t room = blockRoom_ == 0 ? 4 : blockRoom_ * 2;
            auto** blocks = new Entry**[room];
            for (std::size_t block = 0; block < blockCount_; ++block) blocks[block] = blocks_[block];
            delete[] blocks_;
            blocks_ = blocks;
            blockRoom_ = room;
        }
        blocks_[blockCount_++] = new Entry*[kBlockSize]();
    }

    Entry*** blocks_ = nullptr;  // of kBlockSize chains each
    std::size_t blockCount_ = 0;
    std::size_t blockRoom_ = 0;
    std::size_t chainCount_ = 0;
    std::size_t entryCount_ = 0;
};

}  // namespace zelka

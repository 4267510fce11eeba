#include "simulator/runtime/macho/unwind_table.h"

// The section __unwind_info: a header names common encodings, personality functions and an index; each index entry
// covers functions from its own to the next entry's, in a page of (function, encoding) pairs.
namespace phone::macho {
namespace {

struct SectionHead {
    std::uint32_t version, encodingsOffset, encodingsCount, personalitiesOffset, personalitiesCount, indexOffset,
        indexCount;
};

struct IndexEntry {
    std::uint32_t function, pageOffset, landingOffset;
};

struct Landing {
    std::uint32_t function, data;
};

struct PageHead {
    std::uint32_t kind;
    std::uint16_t entriesOffset, entriesCount, encodingsOffset, encodingsCount;
};

struct RegularEntry {
    std::uint32_t function, encoding;
};

constexpr std::uint32_t kRegularPage = 2, kCompressedPage = 3;
constexpr const char* kWhat = "the unwind information";

class Table {
  public:
    explicit Table(Bytes bytes) : bytes_(bytes), head_(at<SectionHead>(0)) {
        if (head_.version != 1) throw Malformed("the unwind information is of an unknown version");
    }

    std::vector<UnwindRow> functions() const {
        std::vector<UnwindRow> found;
        for (std::uint32_t i = 0; i + 1 < head_.indexCount; ++i) {
            if (const IndexEntry entry = index(i); entry.pageOffset != 0) readPage(entry, found);
            // Pages may be shared in a damaged file.
            if (found.size() > bytes_.size()) throw Malformed("the unwind information lists too many functions");
        }
        if (found.empty()) return found;
        const std::uint32_t end = index(head_.indexCount - 1).function;
        for (std::size_t i = 0; i < found.size(); ++i) {
            found[i].end = i + 1 < found.size() ? found[i + 1].begin : end;
            if (found[i].end < found[i].begin) throw Malformed("the unwind information is not in order");
        }
        return found;
    }

    std::map<std::uint32_t, std::uint32_t> landings() const {
        std::map<std::uint32_t, std::uint32_t> found;
        if (head_.indexCount == 0) return found;
        const std::uint32_t begin = index(0).landingOffset, end = index(head_.indexCount - 1).landingOffset;
        for (std::uint64_t offset = begin; offset + sizeof(Landing) <= end; offset += sizeof(Landing)) {
            const auto landing = at<Landing>(offset);
            found[landing.function] = landing.data;
        }
        return found;
    }

    std::vector<std::uint32_t> personalities() const {
        std::vector<std::uint32_t> found;
        for (std::uint64_t i = 0; i < head_.personalitiesCount; ++i) {
            found.push_back(at<std::uint32_t>(head_.personalitiesOffset + i * sizeof(std::uint32_t)));
        }
        return found;
    }

  private:
    template <class T>
    T at(std::uint64_t offset) const {
        return valueAt<T>(bytes_, offset, kWhat);
    }

    IndexEntry index(std::uint64_t i) const { return at<IndexEntry>(head_.indexOffset + i * sizeof(IndexEntry)); }

    void readPage(const IndexEntry& entry, std::vector<UnwindRow>& found) const {
        const std::uint64_t page = entry.pageOffset;
        const auto head = at<PageHead>(page);
        if (head.kind != kRegularPage && head.kind != kCompressedPage) {
            throw Malformed("the unwind information has a page of an unknown kind");
        }
        for (std::uint64_t i = 0; i < head.entriesCount; ++i) {
            if (head.kind == kRegularPage) {
                const auto row = at<RegularEntry>(page + head.entriesOffset + i * sizeof(RegularEntry));
                found.push_back({row.function, 0, row.encoding});
            } else {
                const auto row = at<std::uint32_t>(page + head.entriesOffset + i * sizeof(std::uint32_t));
                found.push_back({entry.function + (row & 0xffffff), 0, encoding(page, head, row >> 24)});
            }
        }
    }

    std::uint32_t encoding(std::uint64_t page, const PageHead& head, std::uint32_t number) const {
        if (number < head_.encodingsCount) return at<std::uint32_t>(head_.encodingsOffset + std::uint64_t{number} * 4);
        const std::uint32_t own = number - head_.encodingsCount;
        if (own >= head.encodingsCount) throw Malformed("the unwind information names an encoding that does not exist");
        return at<std::uint32_t>(page + head.encodingsOffset + std::uint64_t{own} * 4);
    }

    Bytes bytes_;
    SectionHead head_;
};

}  // namespace

UnwindTable readUnwindTable(Bytes section) {
    const Table table(section);
    return {table.functions(), table.landings(), table.personalities()};
}

}  // namespace phone::macho

// Reading of untrusted bytes: every access is checked against the end.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace phone::macho {

using Bytes = std::span<const std::uint8_t>;

// A file that is not what it claims to be. Thrown inside the reader only; it reports errors by value.
struct Malformed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline Bytes slice(Bytes bytes, std::uint64_t offset, std::uint64_t size, const char* what) {
    if (offset > bytes.size() || size > bytes.size() - offset) {
        throw Malformed(std::string(what) + " reaches past the end of the file");
    }
    return bytes.subspan(offset, size);
}

// The value at an offset, in this machine's byte order, which is that of the files read here.
template <class T>
T valueAt(Bytes bytes, std::uint64_t offset, const char* what) {
    static_assert(std::is_trivially_copyable_v<T>);
    T value;
    std::memcpy(&value, slice(bytes, offset, sizeof value, what).data(), sizeof value);
    return value;
}

// A name in a field of fixed width, which the NUL may be missing from.
template <std::size_t Size>
std::string fixedName(const char (&field)[Size]) {
    return std::string(field, strnlen(field, Size));
}

// Reads forward through variable-length values.
class Cursor {
  public:
    Cursor(Bytes bytes, const char* what, std::uint64_t position = 0)
        : bytes_(bytes), what_(what), position_(position) {
        if (position > bytes.size()) truncated();
    }

    bool atEnd() const { return position_ == bytes_.size(); }

    std::uint8_t byte() {
        if (atEnd()) truncated();
        return bytes_[position_++];
    }

    std::uint64_t uleb() {
        std::uint64_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const std::uint8_t next = byte();
            const std::uint64_t part = next & 0x7f;
            if (shift > 63 || (shift == 63 && part > 1)) tooBig();
            value |= part << shift;
            if ((next & 0x80) == 0) return value;
        }
    }

    std::int64_t sleb() {
        std::uint64_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const std::uint8_t next = byte();
            if (shift > 63) tooBig();
            value |= static_cast<std::uint64_t>(next & 0x7f) << shift;
            if ((next & 0x80) != 0) continue;
            if ((next & 0x40) != 0 && shift + 7 < 64) value |= ~std::uint64_t{0} << (shift + 7);
            return static_cast<std::int64_t>(value);
        }
    }

    // The text up to a NUL, which is consumed.
    std::string_view text() {
        const std::uint64_t begin = position_;
        while (byte() != 0) {
        }
        return {reinterpret_cast<const char*>(bytes_.data()) + begin, static_cast<std::size_t>(position_ - begin - 1)};
    }

  private:
    [[noreturn]] void truncated() const { throw Malformed(std::string(what_) + " is cut off"); }
    [[noreturn]] void tooBig() const { throw Malformed(std::string(what_) + " hold a number of more than 64 bits"); }

    Bytes bytes_;
    const char* what_;
    std::uint64_t position_;
};

}  // namespace phone::macho

// A string literal usable as a template argument, so that selectors and encodings are known to the compiler.
#pragma once

#include <cstddef>
#include <string_view>

namespace zelka {

template <std::size_t Size>
struct FixedString {
    char text[Size + 1] = {};

    constexpr FixedString() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a literal becomes a template argument by it
    constexpr FixedString(const char (&literal)[Size + 1]) {
        for (std::size_t i = 0; i < Size; ++i) text[i] = literal[i];
    }

    constexpr const char* c_str() const { return text; }
    constexpr std::string_view view() const { return {text, Size}; }

    constexpr std::size_t count(char wanted) const {
        std::size_t found = 0;
        for (char character : view()) found += character == wanted;
        return found;
    }
};

template <std::size_t Size>
FixedString(const char (&)[Size]) -> FixedString<Size - 1>;

template <std::size_t Left, std::size_t Right>
constexpr FixedString<Left + Right> operator+(const FixedString<Left>& left, const FixedString<Right>& right) {
    FixedString<Left + Right> joined;
    for (std::size_t i = 0; i < Left; ++i) joined.text[i] = left.text[i];
    for (std::size_t i = 0; i < Right; ++i) joined.text[Left + i] = right.text[i];
    return joined;
}

}  // namespace zelka

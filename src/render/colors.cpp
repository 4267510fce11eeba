#include "src/render/colors.h"

#include <array>
#include <cstdlib>
#include <span>

#include "src/util/process.h"

namespace zelka {
namespace {

constexpr std::array kFullPalette{
    "#4b9484", "#9cd2d0", "#9f9cd2", "#12a9d5", "#42d7b6", "#80c99d", "#84f4eb", "#576c93", "#898c66", "#4785f2",
    "#839096", "#a2c257", "#a5682a", "#B294D1", "#c9b580", "#cd6b80", "#cfd8f0", "#cff0e2", "#d2cf9c", "#d7d242",
    "#D8BFD8", "#d8f0cf", "#dacff0", "#e3b333", "#EE9572", "#f0cfcf", "#f0cfe7", "#f0eacf", "#f9cccc", "#f484c6"};

// The saturated colours of the full palette, in its order.
constexpr std::array kDarkPalette{"#4b9484", "#12a9d5", "#576c93", "#898c66", "#4785f2", "#839096", "#a2c257",
                                  "#a5682a", "#cd6b80", "#d7d242", "#e3b333", "#EE9572", "#f484c6"};

static_assert(kFullPalette.size() == 30 && kDarkPalette.size() == 13);

// The value of a hexadecimal digit of either case; -1 for any other character.
constexpr int digitValue(std::uint16_t character) {
    if (character >= '0' && character <= '9') return character - '0';
    const int letter = character | ('a' ^ 'A');
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

// The number that the two characters there begin with, in hexadecimal digits; 0 when the first is none. A shorter text
// raises a range error.
NSInteger componentAt(NSString text, NSUInteger position) {
    std::array<std::uint16_t, 2> characters{};
    text.getCharacters(characters.data(), {position, characters.size()});
    const int first = digitValue(characters[0]);
    const int second = digitValue(characters[1]);
    if (first < 0) return 0;
    return second < 0 ? first : first * 16 + second;
}

std::size_t drawPaletteIndex(NSInteger seed, std::size_t count) {
    std::size_t first = arc4random() % count;
    std::size_t shift = seed < 1 ? arc4random() : static_cast<std::size_t>(seed);
    std::size_t index = shift % count + first;
    while (index >= count) index = 2 * (arc4random() % count);
    return index;
}

}  // namespace

UIColor colorWithComponents(NSInteger red, NSInteger green, NSInteger blue, CGFloat alpha) {
    auto component = [](NSInteger value) { return static_cast<CGFloat>(value) / static_cast<CGFloat>(255.0); };
    return UIColor::withComponents(component(red), component(green), component(blue), alpha);
}

UIColor colorWithHexaCode(NSString text, CGFloat alpha) {
    return colorWithComponents(componentAt(text, 1), componentAt(text, 3), componentAt(text, 5), alpha);
}

UIColor getMonogramRandomColor(NSInteger seed, bool darkColor) {
    std::span<const char* const> palette = kFullPalette;
    if (darkColor) palette = kDarkPalette;
    return colorWithHexaCode(NSString::fromUTF8(palette[drawPaletteIndex(seed, palette.size())]), 1.0);
}

UIColor getMonogramRandomColor(NSInteger seed) {
    return getMonogramRandomColor(seed, mainBundleIdentifier().equals(literal<"com.apple.facetime">()));
}

}  // namespace zelka

// Pictures of whole screens, kept beside the tests and compared within a tolerance. script/update-golden renews them.
#pragma once

#include <filesystem>
#include <string>

namespace test {

// How far a screen may be from its golden picture: other versions of the drawing libraries antialias otherwise, which
// changes the edges of letters and discs a little.
struct Tolerance {
    int sameColour = 24;        // difference of a component that counts as the same
    double strange = 0.004;     // share of the pixels that may differ by more
    double meanDifference = 1;  // over all components, of 255
};

// Compares the screen in `shot` (PNG), made smaller by `divisor`, with the golden picture of that name; empty, or what
// is wrong. Where they differ, the small screen is left in the directory that the message names. With the environment
// variable ZELKA_UPDATE_GOLDEN set, the screen becomes the golden picture instead.
std::string compareWithGolden(const std::filesystem::path& shot, int divisor, const std::string& name);

}  // namespace test

// Colours of monogram pictures: constructors added to UIColor and the choice from the monogram palette. Results are
// unowned (+0). Any thread.
#pragma once

#include <span>

#include "src/platform/class_builder.h"
#include "src/platform/uikit.h"

// The colour of a code laid out 0x00RRGGBB, opaque; the top byte is ignored.
UIColor colorWithHexaCode(std::int32_t code);

// The colour of components meant as 0 to 255, and an alpha from 0.0 to 1.0. Nothing is clamped.
UIColor colorWithComponents(NSInteger red, NSInteger green, NSInteger blue, CGFloat alpha);

// The colour of a text of one character, whichever, and six hexadecimal digits of either case; digits that are none
// count as 0. Raises the platform's range error for a shorter text.
UIColor colorWithHexaCode(NSString text, CGFloat alpha);

namespace ZelkaCBUtils {

// An opaque palette colour, drawn anew by every call: the seed only shifts the draw, and one below 1 is itself drawn.
UIColor getMonogramRandomColor(NSInteger seed, bool darkColor);

// The same from the full palette, in FaceTime from the dark one.
UIColor getMonogramRandomColor(NSInteger seed);

// The class methods that answer to these functions.
std::span<const MethodRow> colorMethods();

}  // namespace ZelkaCBUtils

// Class methods to add to UIColor.
std::span<const MethodRow> colorCategoryMethods();

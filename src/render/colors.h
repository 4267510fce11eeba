// Colours of monogram pictures: their constructors and the choice from the monogram palette. Results are unowned (+0).
// Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIColor.h"

namespace zelka {

// The colour of components meant as 0 to 255, and an alpha from 0.0 to 1.0. Nothing is clamped.
UIColor colorWithComponents(NSInteger red, NSInteger green, NSInteger blue, CGFloat alpha);

// The colour of a text of one character, whichever, and six hexadecimal digits of either case; digits that are none
// count as 0. A shorter text raises the platform's range error; the palette has none.
UIColor colorWithHexaCode(NSString text, CGFloat alpha);

// An opaque palette colour, chosen at random by every call: the seed only shifts the choice, and a seed below 1 is
// replaced by a random one.
UIColor getMonogramRandomColor(NSInteger seed, bool darkColor);

// The same from the full palette, in FaceTime from the dark one.
UIColor getMonogramRandomColor(NSInteger seed);

}  // namespace zelka

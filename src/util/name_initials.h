// Initials of names, at most two UTF-16 units, in the letter case of the name. Results are unowned (+0). Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// The text's first UTF-16 unit. The text must not be empty: that raises the platform's range error.
inline NSString firstCharacter(NSString text) { return text.substringToIndex(1); }

// The initials of a name's first and last word. Nil for nil, the name itself when it is empty; one space for a name
// without words and for a single word that does not come first in the name. Raises nothing.
NSString monogramTextFromName(NSString name);

}  // namespace zelka

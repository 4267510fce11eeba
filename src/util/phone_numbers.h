// Phone numbers as texts. Results are +0. Any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// The number as the system displays it; nil when the system has no formatter.
NSString getFormattedPhoneNumber(NSString number);

// A new text without spaces, parentheses and hyphens; everything else stays.
NSString getPlainPhoneNumber(NSString number);

// The number between "tel://" and "?"; a link that lacks either comes back unchanged. Raises a range error when the
// question mark comes before the end of the scheme.
NSString getPhoneNumberFromURL(NSString link);

}  // namespace zelka

// Character sets, by ICU.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/maker/common/result.h"

namespace maker {

struct Converted {
    std::string text;          // UTF-8
    std::size_t replaced = 0;  // how many characters of it are U+FFFD because the bytes mean nothing in the set
};

// Bytes of a character set, named as in a file ("windows-1252", "SHIFT_JIS"), as UTF-8. ISO-8859-1 is read as
// windows-1252, whose superset it is in practice (Encoding Standard, "Names and labels"). Fails for a name that ICU
// does not know.
Result<Converted> toUtf8(std::string_view bytes, const std::string& charset);

// Whether ICU knows a character set of that name.
bool isCharset(const std::string& name);

bool isUtf8(std::string_view bytes);

}  // namespace maker

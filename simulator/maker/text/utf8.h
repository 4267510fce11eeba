// Texts from the wild.
#pragma once

#include <string>

namespace maker {

// The text with U+FFFD for what is not UTF-8.
std::string madeValid(const std::string& text);

}  // namespace maker

// Numbers in sentences.
#pragma once

#include <string>

namespace tool {

// "1 contact", "2 contacts", "0 contacts". For nouns whose plural adds an s.
inline std::string counted(long number, const std::string& noun) {
    return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

}  // namespace tool

// Being told about long work, and giving it up.
#pragma once

#include <functional>
#include <string_view>

namespace phone {

// Told about long work, often: what is being done, how far it is, and of how much; and, with an empty text, in between
// and between the steps. What it throws ends the work, as a failure would.
using Progress = std::function<void(std::string_view what, long done, long total)>;

// That the work goes on, without a word about how far it is.
inline void tellGoingOn(const Progress& progress) {
    if (progress) progress({}, 0, 0);
}

}  // namespace phone

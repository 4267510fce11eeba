// Following long work, and giving it up.
#pragma once

#include <functional>
#include <string_view>

namespace maker {

// Called often while long work goes on: with what is being done, how far it is, and of how much; and, with an empty
// text, in between and between the steps. What it throws ends the work, as a failure would.
using Progress = std::function<void(std::string_view what, long done, long total)>;

// Calls `progress`, if there is one, to say that the work goes on.
inline void reportGoingOn(const Progress& progress) {
    if (progress) progress({}, 0, 0);
}

}  // namespace maker

// The runtime class ZelkaCBUtils: the library's functions as class methods, under the selectors that other code in the
// process knows.
#pragma once

namespace zelka {

// Registers the class with the runtime. On the loading thread.
void registerUtilityClass();

}  // namespace zelka

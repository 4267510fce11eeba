#pragma once

#include <stdlib.h>

#include <string>

namespace test {

// The library under test: the one that the environment variable ZELKA_LIBRARY names, such as that in the phone's own
// binary format, else this machine's own build.
inline std::string libraryPath() {
    const char* chosen = getenv("ZELKA_LIBRARY");
    return chosen != nullptr ? chosen : ZELKA_LIBRARY;
}

}  // namespace test

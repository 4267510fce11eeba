#pragma once

// The phone's injector, which loads extension libraries into a starting process.

#include <string>
#include <vector>

namespace phone {

// Loads every library of ROOT/Library/MobileSubstrate/DynamicLibraries whose filter names this process's bundle
// identifier, in the order of their names. Returns the paths loaded. A filter or library that cannot be used is
// reported on standard error and passed over, as on a phone. Main thread.
std::vector<std::string> injectLibraries();

}  // namespace phone

#pragma once

// A shared library of this machine, read from its file.

#include <string>
#include <vector>

namespace test {

struct LibraryFile {
    // What is wrong with the file; empty when the rest is true.
    std::string problem;
    // The demangled names of the functions that the loader calls, in its order.
    std::vector<std::string> initialisers;
    std::vector<std::string> finalisers;
    // Whether there are functions of the older kind, _init and _fini.
    bool hasOldInitialisers = false;
    // Names that other files can bind to.
    std::vector<std::string> exports;
    // Every name in the full symbol table.
    std::vector<std::string> symbols;
};

LibraryFile readLibrary(const std::string& path);

}  // namespace test

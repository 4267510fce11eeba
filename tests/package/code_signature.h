// The signature at the end of a phone's binary, as <kern/cs_blobs.h> of the published XNU has it.
#pragma once

#include <string>
#include <vector>

namespace test {

struct CodeDirectory {
    std::string identifier;
    int hashBytes = 0;
    bool adHoc = false;
    // Whether the hashes of all pages are those of the file.
    bool matches = false;
};

// The directories of a thin file, in their order; empty when it is not signed.
std::vector<CodeDirectory> codeDirectories(const std::string& file);

}  // namespace test

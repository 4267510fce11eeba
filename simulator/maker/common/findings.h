// What an import left out or mended: collected while files are read, shown once at the end.
#pragma once

#include <string>
#include <vector>

namespace maker {

enum class FindingKind {
    photo,       // a contact that goes without its photo
    characters,  // bytes whose meaning nothing says
    skipped,     // a part of the file that is no contact or call
    mended,      // a value that was made to fit
};

struct Finding {
    FindingKind kind;
    std::string file;
    int line = 0;      // from 1; 0: the file as a whole
    std::string text;  // what was found there and what became of it
};
using Findings = std::vector<Finding>;

// "FILE, line N", or the file alone for line 0.
std::string placeOf(const std::string& file, int line);

// The findings as sentences, "FILE, line N: TEXT". With `all`, each; otherwise one for each file and kind, which counts
// the others of its kind.
std::vector<std::string> sentences(const Findings& findings, bool all);

}  // namespace maker

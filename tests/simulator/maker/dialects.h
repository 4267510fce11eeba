// Files in the dress that other programs give them, made here from plain text.
#pragma once

#include <string>
#include <vector>

namespace test {

// UTF-8 in another character set, by the C library's tables rather than those of the code under test.
std::string encoded(const std::string& utf8, const char* charset);
// Every byte outside of ASCII, and '=', as "=XX".
std::string quotedPrintable(const std::string& bytes);
std::string gzipped(const std::string& bytes);
// With other line ends than \n.
std::string withLineEnds(const std::string& text, const std::string& end);
// In lines of 60 characters, of which all but the first begin with `indent`.
std::string folded(const std::string& text, const std::string& indent);

// One file and what it gives.
struct Dialect {
    std::string name;  // the file's
    std::string bytes;
    std::vector<std::string> expected;  // what comes of it, in the test's words; of a failure, "FAILS"
    std::vector<std::string> told;      // parts of what is said about it, in order; of a failure, of its message
    std::string charset;                // what the user says of its bytes
};

inline void PrintTo(const Dialect& dialect, std::ostream* out) { *out << dialect.name; }

}  // namespace test

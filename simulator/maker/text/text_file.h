// Text files as other programs write them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"

namespace maker {

struct Text {
    std::string file;   // its name, for messages
    std::string bytes;  // lines end in \n; no byte-order mark
};

struct TextLine {
    std::string_view bytes;
    int number = 0;  // from 1
};

// A file's text: unpacked when it is compressed by gzip, converted when it is UTF-16 or UTF-32, whatever its byte
// order, with a mark or without. Other bytes are left for the format to convert, which may say in what they are
// written. What no character could be made of is a finding.
Result<Text> readText(const std::filesystem::path& file, Findings& findings, const Progress& progress = {});

// The lines without their ends. The views live as long as the text.
std::vector<TextLine> linesOf(std::string_view text);

// A part of a file, beginning in `line`, as UTF-8. Bytes that are not UTF-8 are read in the character set that the file
// names there, else in the one that the user has named, each empty for none; without either, they become U+FFFD. That,
// and what is no character of the set, is a finding.
struct Charsets {
    std::string named;  // by the file
    std::string given;  // by the user
};
std::string madeUtf8(std::string_view bytes, const Charsets& charsets, const std::string& file, int line,
                     Findings& findings);
// The same for each line of a text that names none.
void makeUtf8(Text& text, const std::string& charset, Findings& findings);

}  // namespace maker

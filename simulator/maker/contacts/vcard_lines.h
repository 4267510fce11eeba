// The dress that programs put around a vCard's lines, taken off before the cards are parsed.
#pragma once

#include <string>
#include <vector>

#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/text/text_file.h"

namespace maker {

struct VCard {
    // UTF-8. Every property is one line; nothing is in quoted-printable and no line names a character set. A telephone
    // type of the user's own is an X-ABLabel of the line's group.
    std::string text;
    int line = 0;  // where it begins in the file
};

// The cards of a text. A property's bytes are converted from the character set that it names, else from `charset`
// (empty: none is known). What cannot be converted and what stands outside of the cards are findings. Fails, naming
// file and line, for a text without cards and for one that ends within a card.
Result<std::vector<VCard>> splitVCards(const Text& text, const std::string& charset, Findings& findings);

}  // namespace maker

// What the targets of one program share: a phone with the library loaded, and a way to say what went wrong.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "tests/support/temp_root.h"

namespace fuzz {

using Bytes = std::span<const std::uint8_t>;

// One input each. A target returns when everything is as it should be, and ends the process otherwise.
void calls(Bytes input);
void databases(Bytes input);
void device(Bytes input);
void encodings(Bytes input);
void names(Bytes input);
void settings(Bytes input);
void texts(Bytes input);
void thumbnails(Bytes input);
void vcards(Bytes input);

// Tells on the terminal what is wrong, and ends the process in a way that the fuzzer takes for a crash.
[[noreturn]] void fail(const std::string& message);

// The phone that this process belongs to.
const test::TempRoot& root();

std::string text(Bytes input);

}  // namespace fuzz

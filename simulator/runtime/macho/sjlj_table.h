// The table of a function that wants to know of exceptions, as clang writes it for 32-bit phones: "Itanium C++ ABI:
// Exception Handling", with numbers of calls in place of addresses.
#pragma once

#include <cstdint>

namespace phone::macho {

// Where a function goes on when one of its calls raises.
struct Landing {
    bool wanted = false;     // whether the call wants to know at all
    bool catches = false;    // it wants to end the exception; else to clean up
    std::uint32_t pad = 0;   // the number of the place in the function
    std::uint32_t type = 0;  // what it sees as the type's number
};

// Of the call with that number, from 1, by a table in memory. Ends the process with a message when the function looks
// for exceptions of one type only: types of the phone's format are not known here.
Landing landingOf(const std::uint8_t* table, std::uint32_t call);

}  // namespace phone::macho

// Decides what the system's random source draws.
#pragma once

#include <cstdint>
#include <initializer_list>

namespace test {

// The next draws of arc4random, in this order; when they are used up it is random again.
void scriptRandomDraws(std::initializer_list<uint32_t> draws);
// How many scripted draws have not been used yet.
int scriptedDrawsLeft();

}  // namespace test

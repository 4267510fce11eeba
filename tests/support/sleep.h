// Seconds that a process sleeps, passed over: the tests' `sleep` stands ahead of the C library's, in the library of the
// phone's binary format as well.
#pragma once

#include <functional>

namespace test {

// From now on `sleep` returns at once. The work is done in the sleep during which that many seconds are over, counted
// from here, on the thread that sleeps.
void whenSlept(double seconds, std::function<void()> work);

// How many seconds have been passed over.
unsigned slept();

}  // namespace test

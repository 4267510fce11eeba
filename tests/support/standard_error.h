// A process that plays the phone sends its standard error to the phone's log. What ends it must be seen all the same.
#pragma once

namespace test {

// Keeps the process's standard error. When the process aborts or fails from now on, what the log has taken by then is
// written there. Returns the descriptor, which stays open.
int keepStandardError();

}  // namespace test

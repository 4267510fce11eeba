#pragma once

// How much queued work the process still has to do. The frameworks that queue work (main queue, operation queues) each
// say how to count theirs; settle() (process.h) waits for none.

namespace phone {

using WorkCount = long (*)();

// While the program loads.
void addWorkSource(WorkCount count);

// Any thread.
long pendingWork();

}  // namespace phone

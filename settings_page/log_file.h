// The library's log, as its owner sees it. Main thread.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// The log's size in the user's language (+0); nil when there is no log.
NSString logSize();

// Empties the log and returns whether it is empty now. It is cut off at its beginning, not removed: the processes that
// write it keep it open, and would go on writing to a file without a name, which takes room until they end and which
// nobody can read. They append, so what they write next stands at the beginning.
bool emptyLog();

}  // namespace zelka

// What the reads of a single contact do while a database cannot be read: they log it and try again, without end
// (docs/compatibility.md).
#pragma once

#include <unistd.h>

#include "src/contacts/database.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/util/log.h"

namespace zelka {

// Logs the text and the connection's error. With an autorelease pool of its own, because a wait may last for days.
inline void logDatabaseError(LogSite site, const char* text, const Database& database) {
    AutoreleasePool pool;
    logError(site, text, database.message(), "'");
}

inline void logOpenError(LogSite site, const Database& database) {
    logDatabaseError(site, "Error while opening database connection: '", database);
}

inline void logPrepareError(LogSite site, const Database& database) {
    logDatabaseError(site, "Error while preparing statement: '", database);
}

// Blocks the thread for a second.
inline void waitForDatabase() { sleep(1); }

}  // namespace zelka

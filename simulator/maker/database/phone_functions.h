// What a phone's SQLite knows and this machine's does not.
#pragma once

#include <sqlite3.h>

namespace maker {

// Provides the orderings and the functions that only the phone has, as far as the database names them: an ordering is
// that of bytes; a function whose name speaks of a guid or uuid returns a new one, another its first argument, or NULL
// without one. The phone's own are not published. A connection needs this before it writes to a phone's own database,
// whose triggers call them. Not for a connection that other threads use already.
void providePhoneFunctions(sqlite3* database);

}  // namespace maker

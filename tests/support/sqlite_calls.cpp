#include "tests/support/sqlite_calls.h"

#include <dlfcn.h>
#include <sqlite3.h>

namespace {

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

test::SqliteCalls& test::sqliteCalls() {
    static SqliteCalls calls;
    return calls;
}

// Ahead of SQLite's own by definition order.
extern "C" int sqlite3_open(const char* name, sqlite3** database) {
    static const auto before = next<decltype(&sqlite3_open)>("sqlite3_open");
    ++test::sqliteCalls().opened;
    return before(name, database);
}

extern "C" int sqlite3_prepare_v2(sqlite3* database, const char* sql, int length, sqlite3_stmt** statement,
                                  const char** tail) {
    static const auto before = next<decltype(&sqlite3_prepare_v2)>("sqlite3_prepare_v2");
    ++test::sqliteCalls().prepared;
    return before(database, sql, length, statement, tail);
}

extern "C" int sqlite3_step(sqlite3_stmt* statement) {
    static const auto before = next<decltype(&sqlite3_step)>("sqlite3_step");
    ++test::sqliteCalls().stepped;
    return before(statement);
}

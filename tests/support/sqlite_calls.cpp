#include "tests/support/sqlite_calls.h"

#include <dlfcn.h>
#include <sqlite3.h>

#include <cstring>

namespace {

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// SQLite's own calls, to read a schema for instance, go through the same names.
bool comesFromSqlite(void* caller) {
    Dl_info where;
    return dladdr(caller, &where) != 0 && std::strstr(where.dli_fname, "libsqlite3") != nullptr;
}

}  // namespace

test::SqliteCalls& test::sqliteCalls() {
    static SqliteCalls calls;
    return calls;
}

// Ahead of SQLite's own by definition order.
extern "C" __attribute__((visibility("default"))) int sqlite3_open(const char* name, sqlite3** database) {
    static const auto before = next<decltype(&sqlite3_open)>("sqlite3_open");
    if (!comesFromSqlite(__builtin_return_address(0))) ++test::sqliteCalls().opened;
    return before(name, database);
}

extern "C" __attribute__((visibility("default"))) int sqlite3_close(sqlite3* database) {
    static const auto before = next<decltype(&sqlite3_close)>("sqlite3_close");
    if (database != nullptr && !comesFromSqlite(__builtin_return_address(0))) ++test::sqliteCalls().closed;
    return before(database);
}

extern "C" __attribute__((visibility("default"))) int sqlite3_prepare_v2(sqlite3* database, const char* sql, int length,
                                                                         sqlite3_stmt** statement, const char** tail) {
    static const auto before = next<decltype(&sqlite3_prepare_v2)>("sqlite3_prepare_v2");
    if (!comesFromSqlite(__builtin_return_address(0))) ++test::sqliteCalls().prepared;
    return before(database, sql, length, statement, tail);
}

extern "C" __attribute__((visibility("default"))) int sqlite3_step(sqlite3_stmt* statement) {
    static const auto before = next<decltype(&sqlite3_step)>("sqlite3_step");
    if (!comesFromSqlite(__builtin_return_address(0))) ++test::sqliteCalls().stepped;
    return before(statement);
}

// How often this process has called SQLite's functions, whoever calls them but SQLite itself. Only connections that
// there are count as closed.
#pragma once

#include <atomic>

namespace test {

struct SqliteCalls {
    std::atomic<int> opened{0}, closed{0}, prepared{0}, stepped{0};
};

SqliteCalls& sqliteCalls();

}  // namespace test

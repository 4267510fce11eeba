#include "simulator/runtime/file_system/sqlite_vfs.h"

#include <sqlite3.h>

#include <cstring>
#include <string>

#include "simulator/runtime/file_system/phone_root.h"

namespace phone {
namespace {

constinit sqlite3_vfs* machine = nullptr;
constinit sqlite3_vfs vfs{};

// SQLite makes every other name (the journal, the write-ahead log) from what this returns, so it is the one place to
// map.
int fullPathname(sqlite3_vfs*, const char* name, int size, char* result) {
    const int code = machine->xFullPathname(machine, hostPath(name).c_str(), size, result);
    if (code != SQLITE_OK && code != SQLITE_OK_SYMLINK) return code;
    // A relative name may have led through an absolute link, which SQLite followed out of the root.
    const std::string inside = hostPath(result);
    if (inside.size() + 1 > static_cast<size_t>(size)) return SQLITE_CANTOPEN;
    std::memcpy(result, inside.c_str(), inside.size() + 1);
    return code;
}

}  // namespace

Status registerPhoneFileSystem() {
    constexpr const char* kRefused = "SQLite does not take the phone's file system";
    machine = sqlite3_vfs_find(nullptr);
    if (machine == nullptr) return failure(kRefused);
    vfs = *machine;
    vfs.zName = "phone";
    vfs.pNext = nullptr;
    vfs.xFullPathname = fullPathname;
    if (sqlite3_vfs_register(&vfs, 1) != SQLITE_OK) return failure(kRefused);
    return {};
}

}  // namespace phone

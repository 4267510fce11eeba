#include "simulator/phone/adopt.h"

#include <system_error>

#include "simulator/phone/check_database.h"
#include "simulator/phone/database.h"

namespace phone {
namespace {

// SQLite writes beside a database that has a write-ahead log, even to read it. So the files are copied as they are, and
// the copy is opened.
Status copyFiles(const std::filesystem::path& file, const std::filesystem::path& copy) {
    for (const char* suffix : {"", "-wal", "-journal"}) {
        std::filesystem::path from = file.string() + suffix;
        std::error_code error;
        if (*suffix && !std::filesystem::exists(from, error)) continue;
        std::filesystem::copy_file(from, copy.string() + suffix, std::filesystem::copy_options::overwrite_existing,
                                   error);
        if (error) return Failure{from.string() + ": cannot be copied: " + error.message()};
        std::filesystem::permissions(copy.string() + suffix, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, error);
    }
    return Done{};
}

Status backUp(const Database& source, const std::filesystem::path& copy) {
    Result<Database> target = Database::open(copy, true);
    if (!target) return target.failure();
    sqlite3_backup* backup = sqlite3_backup_init(target->get(), "main", source.get(), "main");
    int code = backup ? sqlite3_backup_step(backup, -1) : sqlite3_errcode(target->get());
    if (backup) sqlite3_backup_finish(backup);
    if (code != SQLITE_DONE) return Failure{copy.string() + ": " + sqlite3_errstr(code)};
    // Hosts open databases for reading only, where a write-ahead log needs files beside it. Indexes in an ordering that
    // only the phone has are made anew in ours.
    return target->execute("PRAGMA journal_mode=DELETE; REINDEX");
}

}  // namespace

Status adoptDatabase(const std::filesystem::path& file, const DatabaseShape& shape, const std::filesystem::path& copy) {
    Status isFile = checkFile(file, shape);
    if (!isFile) return isFile;
    std::error_code error;
    std::filesystem::create_directories(copy.parent_path(), error);
    std::filesystem::path staging = copy.string() + ".adopted";
    Status copied = copyFiles(file, staging);
    if (copied) {
        Result<Database> source = Database::open(staging, false);
        copied = source ? checkContents(*source, file.string(), shape) : Status(source.failure());
        if (copied) copied = backUp(*source, copy);
    }
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(staging.string() + suffix, error);
    }
    return copied;
}

}  // namespace phone

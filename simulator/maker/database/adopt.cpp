#include "simulator/maker/database/adopt.h"

#include <memory>
#include <system_error>

#include "simulator/maker/database/check_database.h"
#include "simulator/maker/database/database.h"

namespace phone {
namespace {

// SQLite writes beside a database that has a write-ahead log, even to read it. So the files are copied as they are, and
// the copy is opened.
Status copyFiles(const std::filesystem::path& file, const std::filesystem::path& copy, const Progress& progress) {
    for (const char* suffix : {"", "-wal", "-journal"}) {
        tellGoingOn(progress);
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

Status copyPages(const Database& source, const Database& target, const Progress& progress) {
    constexpr int pagesAtOnce = 1000;
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    const std::unique_ptr<sqlite3_backup, decltype(&sqlite3_backup_finish)> finished(backup, sqlite3_backup_finish);
    int code = backup ? SQLITE_OK : sqlite3_errcode(target.get());
    while (code == SQLITE_OK) {
        tellGoingOn(progress);
        code = sqlite3_backup_step(backup, pagesAtOnce);
    }
    return code == SQLITE_DONE ? Status(Done{}) : Status(Failure{sqlite3_errstr(code)});
}

Status backUp(const Database& source, const std::filesystem::path& copy, const Progress& progress) {
    Result<Database> target = Database::open(copy, true);
    if (!target) return target.failure();
    Status copied = copyPages(source, *target, progress);
    if (!copied) return Failure{copy.string() + ": " + copied.text()};
    // Hosts open databases for reading only, where a write-ahead log needs files beside it. Indexes in an ordering that
    // only the phone has are made anew in ours.
    const WorkWatch watch(*target, progress);
    Status indexed = target->execute("PRAGMA journal_mode=DELETE; REINDEX");
    watch.rethrow();
    return indexed;
}

Status checkWatched(const Database& database, const std::string& name, const DatabaseShape& shape,
                    const Progress& progress) {
    const WorkWatch watch(database, progress);
    Status checked = checkContents(database, name, shape);
    watch.rethrow();
    return checked;
}

}  // namespace

Status adoptDatabase(const std::filesystem::path& file, const DatabaseShape& shape, const std::filesystem::path& copy,
                     const Progress& progress) {
    Status isFile = checkFile(file, shape);
    if (!isFile) return isFile;
    std::error_code error;
    std::filesystem::create_directories(copy.parent_path(), error);
    std::filesystem::path staging = copy.string() + ".adopted";
    Status copied = copyFiles(file, staging, progress);
    if (copied) {
        Result<Database> source = Database::open(staging, false);
        copied = source ? checkWatched(*source, file.string(), shape, progress) : Status(source.failure());
        if (copied) copied = backUp(*source, copy, progress);
    }
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(staging.string() + suffix, error);
    }
    return copied;
}

}  // namespace phone

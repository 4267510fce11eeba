#include "simulator/maker/database/adopt.h"

#include <memory>
#include <system_error>

#include "simulator/maker/database/check_database.h"
#include "simulator/maker/database/database.h"

namespace maker {
namespace {

// SQLite writes beside a database that has a write-ahead log, even to read it. So the files are copied as they are, and
// the copy is opened.
Status copyFiles(const std::filesystem::path& file, const std::filesystem::path& copy, const Progress& progress) {
    for (const char* suffix : {"", "-wal", "-journal"}) {
        reportGoingOn(progress);
        std::filesystem::path from = file.string() + suffix;
        std::error_code error;
        if (*suffix && !std::filesystem::exists(from, error)) continue;
        std::filesystem::copy_file(from, copy.string() + suffix, std::filesystem::copy_options::overwrite_existing,
                                   error);
        if (error) return failure(from.string() + ": cannot be copied: " + error.message());
        std::filesystem::permissions(copy.string() + suffix, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, error);
    }
    return {};
}

Status copyPages(const Database& source, const Database& target, const Progress& progress) {
    constexpr int pagesAtOnce = 1000;
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    const std::unique_ptr<sqlite3_backup, decltype(&sqlite3_backup_finish)> finished(backup, sqlite3_backup_finish);
    int code = backup ? SQLITE_OK : sqlite3_errcode(target.get());
    while (code == SQLITE_OK) {
        reportGoingOn(progress);
        code = sqlite3_backup_step(backup, pagesAtOnce);
    }
    if (code != SQLITE_DONE) return failure(sqlite3_errstr(code));
    return {};
}

Status backUp(const Database& source, const std::filesystem::path& copy, const Progress& progress) {
    Result<Database> target = Database::open(copy, true);
    if (!target) return failure(target);
    Status copied = copyPages(source, *target, progress);
    if (!copied) return failure(copy.string() + ": " + copied.error().message);
    // The journal's kind came with the pages. Indexes in an ordering that only the phone has are made anew in ours.
    const WorkWatch watch(*target, progress);
    Status indexed = target->execute("REINDEX");
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
    if (Status isFile = checkFile(file, shape); !isFile) return isFile;
    std::error_code error;
    std::filesystem::create_directories(copy.parent_path(), error);
    std::filesystem::path staging = copy.string() + ".adopted";
    const Status copied = copyFiles(file, staging, progress)
                              .and_then([&] { return Database::open(staging, false); })
                              .and_then([&](const Database& source) {
                                  return checkWatched(source, file.string(), shape, progress).and_then([&] {
                                      return backUp(source, copy, progress);
                                  });
                              });
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(staging.string() + suffix, error);
    }
    return copied;
}

}  // namespace maker

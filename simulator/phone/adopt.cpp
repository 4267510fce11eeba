#include "simulator/phone/adopt.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>

#include "simulator/phone/database.h"

namespace phone {
namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

bool looksLikeDatabase(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    char head[kMagic.size()] = {};
    stream.read(head, sizeof head);
    return stream && std::string_view(head, sizeof head) == kMagic;
}

Status requireDatabaseFile(const std::filesystem::path& file, const DatabaseShape& shape) {
    std::error_code error;
    auto type = std::filesystem::status(file, error).type();
    std::string name = file.string();
    if (type == std::filesystem::file_type::not_found) return Failure{name + ": there is no such file"};
    if (type != std::filesystem::file_type::regular) return Failure{name + ": is not a file"};
    if (!std::ifstream(file)) return Failure{name + ": " + std::generic_category().message(errno)};
    if (std::filesystem::file_size(file, error) == 0) return Failure{name + ": is empty, not " + shape.what};
    if (!looksLikeDatabase(file)) return Failure{name + ": is not an SQLite database, so not " + shape.what};
    return Done{};
}

std::set<std::string> columnsOf(const Database& database, const std::string& table) {
    std::set<std::string> columns;
    Statement statement = database.prepare("SELECT name FROM pragma_table_info(?)");
    statement.bind(1, std::string_view(table));
    while (statement.step()) columns.insert(lower(statement.text(0)));
    return columns;
}

Status requireShape(const Database& database, const std::string& name, const DatabaseShape& shape) {
    // A cut-off file shows here: its header is sound and its pages are missing.
    Statement check = database.prepare("PRAGMA quick_check(1)");
    if (!check.step()) return Failure{name + ": is damaged: " + sqlite3_errmsg(database.get())};
    if (check.text(0) != "ok") return Failure{name + ": is damaged: " + check.text(0)};
    const std::string refusal = name + ": is not " + shape.what + ": ";
    for (const auto& [table, needed] : shape.required) {
        std::set<std::string> columns = columnsOf(database, table);
        if (columns.empty()) return Failure{std::string(refusal).append("it has no table ").append(table)};
        for (const std::string& column : needed) {
            if (columns.count(lower(column))) continue;
            return Failure{
                std::string(refusal).append("its table ").append(table).append(" has no column ").append(column)};
        }
    }
    return Done{};
}

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
    Status isFile = requireDatabaseFile(file, shape);
    if (!isFile) return isFile;
    std::error_code error;
    std::filesystem::create_directories(copy.parent_path(), error);
    std::filesystem::path staging = copy.string() + ".adopted";
    Status copied = copyFiles(file, staging);
    if (copied) {
        Result<Database> source = Database::open(staging, false);
        copied = source ? requireShape(*source, file.string(), shape) : Status(source.failure());
        if (copied) copied = backUp(*source, copy);
    }
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(staging.string() + suffix, error);
    }
    return copied;
}

}  // namespace phone

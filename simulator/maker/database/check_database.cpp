#include "simulator/maker/database/check_database.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>

namespace maker {
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

std::set<std::string> columnsOf(const Database& database, const std::string& table) {
    std::set<std::string> columns;
    Statement statement = database.prepare("SELECT name FROM pragma_table_info(?)");
    statement.bind(1, std::string_view(table));
    while (statement.step()) columns.insert(lower(statement.text(0)));
    return columns;
}

Status requireSoundPages(const Database& database, const std::string& name) {
    // A cut-off file shows here: its header is sound and its pages are missing.
    Statement check = database.prepare("PRAGMA quick_check(1)");
    if (!check.step()) {
        // What another program keeps locked need not be damaged.
        const bool isLocked = sqlite3_errcode(database.get()) == SQLITE_BUSY;
        return failure(name + (isLocked ? ": " : ": is damaged: ") + sqlite3_errmsg(database.get()));
    }
    if (check.text(0) != "ok") return failure(name + ": is damaged: " + check.text(0));
    return {};
}

Status requireShape(const Database& database, const std::string& name, const DatabaseShape& shape) {
    const std::string refusal = name + ": is not " + shape.what + ": ";
    for (const auto& [table, needed] : shape.required) {
        std::set<std::string> columns = columnsOf(database, table);
        if (columns.empty()) return failure(std::string(refusal).append("it has no table ").append(table));
        for (const std::string& column : needed) {
            if (columns.count(lower(column))) continue;
            return failure(
                std::string(refusal).append("its table ").append(table).append(" has no column ").append(column));
        }
    }
    return {};
}

}  // namespace

Status checkFile(const std::filesystem::path& file, const DatabaseShape& shape) {
    std::error_code error;
    auto type = std::filesystem::status(file, error).type();
    std::string name = file.string();
    if (type == std::filesystem::file_type::not_found) return failure(name + ": there is no such file");
    if (type != std::filesystem::file_type::regular) return failure(name + ": is not a file");
    if (!std::ifstream(file)) return failure(name + ": " + std::generic_category().message(errno));
    if (std::filesystem::file_size(file, error) == 0) return failure(name + ": is empty, not " + shape.what);
    if (!looksLikeDatabase(file)) return failure(name + ": is not an SQLite database, so not " + shape.what);
    return {};
}

Status checkContents(const Database& database, const std::string& name, const DatabaseShape& shape) {
    return requireSoundPages(database, name).and_then([&] { return requireShape(database, name, shape); });
}

Status checkDatabase(const std::filesystem::path& file, const DatabaseShape& shape) {
    return checkFile(file, shape)
        .and_then([&] { return Database::openToRead(file); })
        .and_then([&](const Database& database) { return checkContents(database, file.string(), shape); });
}

}  // namespace maker

#include "simulator/runtime/file_system/phone_database.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <memory>

#include "simulator/runtime/file_system/phone_root.h"

namespace phone {
namespace {

constexpr int kPatience = 5000;  // milliseconds that a read waits for a writer

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

void bind(sqlite3_stmt* statement, int index, const PhoneDatabase::Value& value) {
    if (const std::string* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text64(statement, index, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } else {
        sqlite3_bind_int64(statement, index, std::get<std::int64_t>(value));
    }
}

// `start` is what SQLite has for the column, null for a text of no bytes; the length is asked for after it.
std::optional<std::string> copied(sqlite3_stmt* statement, int column, const void* start) {
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) return std::nullopt;
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return start != nullptr ? std::string(static_cast<const char*>(start), length) : std::string();
}

}  // namespace

std::int64_t Row::integer(int column) const { return sqlite3_column_int64(statement_, column); }

double Row::number(int column) const { return sqlite3_column_double(statement_, column); }

std::optional<std::string> Row::text(int column) const {
    return copied(statement_, column, sqlite3_column_text(statement_, column));
}

std::optional<std::string> Row::bytes(int column) const {
    return copied(statement_, column, sqlite3_column_blob(statement_, column));
}

PhoneDatabase::PhoneDatabase(std::string phonePath) : path_(std::move(phonePath)) {}

PhoneDatabase::~PhoneDatabase() { close(); }

Status PhoneDatabase::read(const char* sql, const std::vector<Value>& values,
                           const std::function<void(const Row&)>& row) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (Status opened = open(); !opened) return opened;
    sqlite3_stmt* prepared = nullptr;
    int code = sqlite3_prepare_v2(database_, sql, -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalize> statement(prepared);
    if (code != SQLITE_OK) return problem(sqlite3_errmsg(database_));
    int index = 0;
    for (const Value& value : values) bind(prepared, ++index, value);
    while ((code = sqlite3_step(prepared)) == SQLITE_ROW) row(Row(prepared));
    if (code != SQLITE_DONE) return problem(sqlite3_errmsg(database_));
    return {};
}

Status PhoneDatabase::open() {
    // Looking up where the root has the file takes longer than reading a row.
    if (database_ == nullptr) file_ = hostPath(path_);
    struct stat now {};
    if (stat(file_.c_str(), &now) != 0) {
        close();
        return problem("there is no such file");
    }
    if (database_ != nullptr && now.st_ino == inode_ && now.st_dev == device_) return {};
    close();
    // The file access that the process has for phone paths finds the root.
    const int code = sqlite3_open_v2(path_.c_str(), &database_, SQLITE_OPEN_READONLY, nullptr);
    if (code != SQLITE_OK) {
        const std::string reason = database_ != nullptr ? sqlite3_errmsg(database_) : sqlite3_errstr(code);
        close();
        return problem(reason.c_str());
    }
    sqlite3_busy_timeout(database_, kPatience);
    inode_ = now.st_ino;
    device_ = now.st_dev;
    return {};
}

void PhoneDatabase::close() {
    sqlite3_close(database_);
    database_ = nullptr;
}

tl::unexpected<Failure> PhoneDatabase::problem(const char* what) const { return failure(path_ + ": " + what); }

}  // namespace phone

#include "simulator/maker/database/database.h"

#include "simulator/maker/database/phone_functions.h"

namespace maker {

Statement::Statement(sqlite3* database, const char* sql) : database_(database) {
    code_ = sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr);
}

Statement& Statement::keep(int code) {
    if (code_ == SQLITE_OK) code_ = code;
    return *this;
}

Statement& Statement::bind(int index, std::string_view text) {
    // A null pointer would bind NULL, and an empty view may hold one.
    const char* start = text.empty() ? "" : text.data();
    return keep(sqlite3_bind_text64(statement_, index, start, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

Statement& Statement::bind(int index, const std::optional<std::string>& text) {
    return text ? bind(index, std::string_view(*text)) : bindNull(index);
}

Statement& Statement::bind(int index, double number) { return keep(sqlite3_bind_double(statement_, index, number)); }

Statement& Statement::bind(int index, int number) { return keep(sqlite3_bind_int(statement_, index, number)); }

Statement& Statement::bindBytes(int index, std::string_view bytes) {
    const char* start = bytes.empty() ? "" : bytes.data();
    return keep(sqlite3_bind_blob64(statement_, index, start, bytes.size(), SQLITE_STATIC));
}

Statement& Statement::bindNull(int index) { return keep(sqlite3_bind_null(statement_, index)); }

bool Statement::step() {
    if (code_ != SQLITE_OK) return false;
    int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) keep(code);
    return false;
}

Status Statement::run() {
    while (step()) continue;
    Status result = status();
    // A statement that could not be prepared is none.
    if (statement_ != nullptr) {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    return result;
}

Status Statement::status() const {
    if (code_ == SQLITE_OK) return {};
    const char* name = sqlite3_db_filename(database_, "main");
    return failure(std::string(name ? name : "database") + ": " + sqlite3_errmsg(database_));
}

std::string Statement::text(int column) const {
    const void* bytes = sqlite3_column_blob(statement_, column);
    int length = sqlite3_column_bytes(statement_, column);
    return bytes ? std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(length)) : std::string();
}

Result<Database> Database::openWith(const std::filesystem::path& file, int flags) {
    sqlite3* opened = nullptr;
    int code = sqlite3_open_v2(file.c_str(), &opened, flags | SQLITE_OPEN_FULLMUTEX, "unix");
    Database database{std::unique_ptr<sqlite3, CloseDatabase>(opened)};
    if (code != SQLITE_OK) {
        return failure(file.string() + ": " + (opened ? sqlite3_errmsg(opened) : sqlite3_errstr(code)));
    }
    // Host processes read while the tool writes.
    sqlite3_busy_timeout(opened, 10000);
    providePhoneFunctions(opened);
    return database;
}

Result<Database> Database::open(const std::filesystem::path& file, bool create) {
    return openWith(file, SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0));
}

Result<Database> Database::openToRead(const std::filesystem::path& file) {
    return openWith(file, SQLITE_OPEN_READONLY);
}

Status Database::execute(const char* sql) {
    if (sqlite3_exec(get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK) return {};
    const char* name = sqlite3_db_filename(get(), "main");
    return failure(std::string(name ? name : "database") + ": " + sqlite3_errmsg(get()));
}

WorkWatch::WorkWatch(const Database& database, const Progress& progress)
    : database_(database.get()), progress_(progress) {
    constexpr int stepsBetween = 10000;  // a millisecond or less
    sqlite3_progress_handler(database_, stepsBetween, report, this);
}

WorkWatch::~WorkWatch() { sqlite3_progress_handler(database_, 0, nullptr, nullptr); }

void WorkWatch::rethrow() const {
    if (thrown_) std::rethrow_exception(thrown_);
}

int WorkWatch::report(void* watch) {
    auto* self = static_cast<WorkWatch*>(watch);
    try {
        reportGoingOn(self->progress_);
        return 0;
    } catch (...) {
        self->thrown_ = std::current_exception();
        return 1;
    }
}

}  // namespace maker

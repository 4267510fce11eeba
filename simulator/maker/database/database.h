// SQLite for the desk: writing the phone's databases by this machine's paths (a process that plays the phone reads them
// by runtime/file_system/phone_database.h). Always through the system's own file access: a process that plays the phone
// maps database names into its root, and these names are this machine's already.
#pragma once

#include <sqlite3.h>

#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"

namespace maker {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};

// A prepared statement; use it with bind(), then step() or run(). The first thing that goes wrong is kept and
// returned by the next run() or by status(), so that binds need no checks.
class Statement {
  public:
    Statement(sqlite3* database, const char* sql);
    Statement(Statement&& other) noexcept
        : database_(other.database_), statement_(std::exchange(other.statement_, nullptr)), code_(other.code_) {}
    Statement& operator=(Statement&&) = delete;
    ~Statement() { sqlite3_finalize(statement_); }

    Statement& bind(int index, std::string_view text);
    Statement& bind(int index, const std::optional<std::string>& text);
    Statement& bind(int index, double number);
    Statement& bind(int index, int number);
    Statement& bindBytes(int index, std::string_view bytes);  // the bytes must live until run()
    Statement& bindNull(int index);

    // Steps to the next row; false at the end and after an error.
    bool step();
    // Steps to the end and makes the statement ready for other values.
    [[nodiscard]] Status run();
    [[nodiscard]] Status status() const;

    int columns() const { return sqlite3_column_count(statement_); }
    double number(int column) const { return sqlite3_column_double(statement_, column); }
    int integer(int column) const { return sqlite3_column_int(statement_, column); }
    std::string text(int column) const;

  private:
    Statement& keep(int code);

    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
    int code_;
};

class Database {
  public:
    // Opens for reading and writing, creating the file when `create` says so.
    static Result<Database> open(const std::filesystem::path& file, bool create);
    static Result<Database> openToRead(const std::filesystem::path& file);

    [[nodiscard]] Status execute(const char* sql);
    Statement prepare(const char* sql) const { return Statement(database_.get(), sql); }
    int lastRow() const { return static_cast<int>(sqlite3_last_insert_rowid(database_.get())); }
    int changes() const { return sqlite3_changes(database_.get()); }
    sqlite3* get() const { return database_.get(); }

  private:
    Database(std::unique_ptr<sqlite3, CloseDatabase> database) : database_(std::move(database)) {}
    static Result<Database> openWith(const std::filesystem::path& file, int flags);

    std::unique_ptr<sqlite3, CloseDatabase> database_;
};

// While it lives, long work on a database calls `progress` all the while. SQLite's C must not be left by an exception:
// what progress throws ends the work as an error, and is thrown on by rethrow().
class WorkWatch {
  public:
    WorkWatch(const Database& database, const Progress& progress);
    ~WorkWatch();
    WorkWatch(const WorkWatch&) = delete;
    WorkWatch& operator=(const WorkWatch&) = delete;

    void rethrow() const;

  private:
    static int report(void* watch);

    sqlite3* database_;
    const Progress& progress_;
    std::exception_ptr thrown_;
};

}  // namespace maker

// SQLite for single reads: a connection and a statement that clean up after themselves.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <span>

#include "src/platform/foundation/NSString.h"

namespace zelka {

// A connection to a database file. Used by one thread; closed at the end of its scope, unless leaveOpen was called.
class Database {
  public:
    // Opens the file; makes an empty one where there is none, if its folder exists.
    explicit Database(const char* path) : isOpen_(sqlite3_open(path, &handle_) == SQLITE_OK) {}
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database() { sqlite3_close(handle_); }

    bool isOpen() const { return isOpen_; }
    // The last error, in English; lives until the next use of the connection.
    const char* message() const { return sqlite3_errmsg(handle_); }
    // Keeps the connection from being closed, for the rest of the process's life.
    void leaveOpen() { handle_ = nullptr; }
    sqlite3* handle() const { return handle_; }

  private:
    sqlite3* handle_ = nullptr;
    bool isOpen_ = false;
};

// One statement, finalized at the end of its scope; the connection must outlive it. Columns are those of the last
// step's row and count from 0.
class Statement {
  public:
    // The SQL may be nullptr, for a text that UTF-8 cannot express: the statement is then not prepared.
    Statement(const Database& database, const char* sql)
        : isPrepared_(sql != nullptr &&
                      sqlite3_prepare_v2(database.handle(), sql, -1, &handle_, nullptr) == SQLITE_OK) {}
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(handle_); }

    bool isPrepared() const { return isPrepared_; }
    // Parameters count from 1.
    void bindInteger(int parameter, int value) const { sqlite3_bind_int(handle_, parameter, value); }
    // SQLITE_ROW, SQLITE_DONE or an error code.
    int step() const { return sqlite3_step(handle_); }
    int integer(int column) const { return sqlite3_column_int(handle_, column); }
    // A copy of the text (+0); nil when the column is NULL or not UTF-8.
    NSString text(int column) const {
        const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
        return utf8 != nullptr ? NSString::fromUTF8(utf8) : NSString{};
    }
    // The bytes, valid until the next step; empty when the column is NULL or empty.
    std::span<const std::byte> bytes(int column) const {
        const auto* data = static_cast<const std::byte*>(sqlite3_column_blob(handle_, column));
        auto length = static_cast<std::size_t>(sqlite3_column_bytes(handle_, column));
        return data != nullptr ? std::span(data, length) : std::span<const std::byte>();
    }

  private:
    sqlite3_stmt* handle_ = nullptr;
    bool isPrepared_ = false;
};

// The databases of the system's address book.
constexpr const char* kAddressBookDatabase = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kAddressBookImageDatabase = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";

}  // namespace zelka

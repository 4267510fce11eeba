// Reading the phone's databases by their phone paths, as the phone's own programs do.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "simulator/runtime/result.h"

struct sqlite3;
struct sqlite3_stmt;

namespace phone {

// A row while it is read; columns count from 0.
class Row {
  public:
    explicit Row(sqlite3_stmt* statement) : statement_(statement) {}

    std::int64_t integer(int column) const;  // 0 for NULL
    double number(int column) const;         // 0 for NULL
    // Nothing for NULL.
    std::optional<std::string> text(int column) const;
    std::optional<std::string> bytes(int column) const;

  private:
    sqlite3_stmt* statement_;
};

// One connection for reading, opened when first needed and opened anew when another file has taken its place. Any
// thread of a booted process.
class PhoneDatabase {
  public:
    using Value = std::variant<std::int64_t, std::string>;

    explicit PhoneDatabase(std::string phonePath);
    PhoneDatabase(const PhoneDatabase&) = delete;
    PhoneDatabase& operator=(const PhoneDatabase&) = delete;
    ~PhoneDatabase();

    // Passes each row that `sql` selects, with `values` for its placeholders in order, to `row`, which may not read
    // from the same database. A failure names the database's phone path; rows before it have been passed on.
    [[nodiscard]] Status read(const char* sql, const std::vector<Value>& values,
                              const std::function<void(const Row&)>& row);

  private:
    Status open();
    void close();
    tl::unexpected<Failure> problem(const char* what) const;

    std::string path_;
    std::string file_;  // of this machine, known while the database is open
    std::mutex mutex_;
    sqlite3* database_ = nullptr;
    ino_t inode_ = 0;
    dev_t device_ = 0;
};

}  // namespace phone

#include "simulator/frameworks/address_book/book_database.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cstdio>
#include <mutex>
#include <set>

#include "simulator/runtime/file_system/phone_root.h"

namespace address_book {
namespace {

constexpr const char* kBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr const char* kImages = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";

using Row = std::function<void(sqlite3_stmt*)>;
using Bind = std::function<void(sqlite3_stmt*)>;

class Connection {
  public:
    explicit Connection(const char* path) : path_(path) {}

    void query(const char* sql, const Bind& bind, const Row& row) {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!open()) return;
        sqlite3_stmt* statement = nullptr;
        int code = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
        if (code == SQLITE_OK) {
            bind(statement);
            while ((code = sqlite3_step(statement)) == SQLITE_ROW) row(statement);
        }
        if (code != SQLITE_OK && code != SQLITE_DONE) tell(sqlite3_errmsg(database_));
        sqlite3_finalize(statement);
    }

  private:
    bool open() {
        // Looking up where the root has the file takes longer than reading a row.
        if (!database_) file_ = phone::hostPath(path_);
        struct stat now {};
        if (stat(file_.c_str(), &now) != 0) {
            close();
            tell("there is no such file");
            return false;
        }
        if (database_ && now.st_ino == inode_ && now.st_dev == device_) return true;
        close();
        // The file access that the process has for phone paths finds the root.
        if (sqlite3_open_v2(path_, &database_, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
            tell(sqlite3_errmsg(database_));
            close();
            return false;
        }
        sqlite3_busy_timeout(database_, 5000);
        inode_ = now.st_ino;
        device_ = now.st_dev;
        return true;
    }

    void close() {
        sqlite3_close(database_);
        database_ = nullptr;
    }

    void tell(const std::string& problem) {
        if (told_.insert(problem).second) std::fprintf(stderr, "AddressBook: %s: %s\n", path_, problem.c_str());
    }

    const char* path_;
    std::string file_;  // of this machine, known while the database is open
    std::mutex mutex_;
    sqlite3* database_ = nullptr;
    ino_t inode_ = 0;
    dev_t device_ = 0;
    std::set<std::string> told_;
};

// Never destroyed: other threads may still ask while the process ends.
Connection& book() {
    static Connection& connection = *new Connection(kBook);
    return connection;
}

Connection& images() {
    static Connection& connection = *new Connection(kImages);
    return connection;
}

Bind bindInteger(std::int32_t number) {
    return [number](sqlite3_stmt* statement) { sqlite3_bind_int(statement, 1, number); };
}

std::optional<std::string> column(sqlite3_stmt* statement, int index) {
    if (sqlite3_column_type(statement, index) == SQLITE_NULL) return std::nullopt;
    const void* bytes = sqlite3_column_blob(statement, index);
    auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, index));
    return bytes ? std::string(static_cast<const char*>(bytes), length) : std::string();
}

const char* selectName(Name which) {
    switch (which) {
        case Name::first:
            return "SELECT First FROM ABPerson WHERE ROWID = ?";
        case Name::last:
            return "SELECT Last FROM ABPerson WHERE ROWID = ?";
        case Name::middle:
            return "SELECT Middle FROM ABPerson WHERE ROWID = ?";
        case Name::prefix:
            return "SELECT Prefix FROM ABPerson WHERE ROWID = ?";
        case Name::suffix:
            return "SELECT Suffix FROM ABPerson WHERE ROWID = ?";
        case Name::nickname:
            return "SELECT Nickname FROM ABPerson WHERE ROWID = ?";
        case Name::organization:
            return "SELECT Organization FROM ABPerson WHERE ROWID = ?";
    }
    return nullptr;
}

}  // namespace

bool personExists(std::int32_t identifier) {
    bool exists = false;
    book().query("SELECT 1 FROM ABPerson WHERE ROWID = ?", bindInteger(identifier),
                 [&](sqlite3_stmt*) { exists = true; });
    return exists;
}

std::optional<std::string> name(std::int32_t identifier, Name which) {
    std::optional<std::string> result;
    book().query(selectName(which), bindInteger(identifier),
                 [&](sqlite3_stmt* statement) { result = column(statement, 0); });
    return result;
}

std::vector<std::int32_t> linkedPeople(std::int32_t identifier) {
    std::vector<std::int32_t> people;
    book().query(
        "SELECT ROWID FROM ABPerson WHERE PersonLink = "
        "(SELECT PersonLink FROM ABPerson WHERE ROWID = ? AND PersonLink > 0) ORDER BY ROWID",
        bindInteger(identifier), [&](sqlite3_stmt* statement) { people.push_back(sqlite3_column_int(statement, 0)); });
    return people;
}

std::vector<std::pair<std::int32_t, std::string>> phoneNumbersEndingIn(const std::vector<std::string>& lastFour) {
    std::vector<std::pair<std::int32_t, std::string>> numbers;
    if (lastFour.empty()) return numbers;
    book().query(
        "SELECT v.record_id, v.value FROM ABPhoneLastFour f JOIN ABMultiValue v ON v.UID = f.multivalue_id "
        "WHERE f.value IN (?1, ?2) AND v.property = 3 ORDER BY v.record_id, v.identifier",
        [&](sqlite3_stmt* statement) {
            sqlite3_bind_text(statement, 1, lastFour.front().c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(statement, 2, lastFour.back().c_str(), -1, SQLITE_TRANSIENT);
        },
        [&](sqlite3_stmt* statement) {
            numbers.emplace_back(sqlite3_column_int(statement, 0), column(statement, 1).value_or(""));
        });
    return numbers;
}

bool hasImage(std::int32_t identifier) {
    bool has = false;
    images().query(
        "SELECT EXISTS (SELECT 1 FROM ABThumbnailImage WHERE record_id = ?1 AND length(data)) OR "
        "EXISTS (SELECT 1 FROM ABFullSizeImage WHERE record_id = ?1 AND length(data))",
        bindInteger(identifier), [&](sqlite3_stmt* statement) { has = sqlite3_column_int(statement, 0) != 0; });
    return has;
}

std::optional<std::string> thumbnail(std::int32_t identifier, int format) {
    std::optional<std::string> result;
    images().query(
        "SELECT data FROM ABThumbnailImage WHERE record_id = ? AND format = ? AND length(data)",
        [&](sqlite3_stmt* statement) {
            sqlite3_bind_int(statement, 1, identifier);
            sqlite3_bind_int(statement, 2, format);
        },
        [&](sqlite3_stmt* statement) { result = column(statement, 0); });
    return result;
}

std::optional<std::string> fullSizeImage(std::int32_t identifier) {
    std::optional<std::string> result;
    images().query("SELECT data FROM ABFullSizeImage WHERE record_id = ? AND length(data)", bindInteger(identifier),
                   [&](sqlite3_stmt* statement) { result = column(statement, 0); });
    return result;
}

}  // namespace address_book

#include "simulator/frameworks/address_book/book_database.h"

#include <cstdio>
#include <mutex>
#include <set>

#include "simulator/runtime/file_system/phone_database.h"

namespace address_book {
namespace {

using phone::PhoneDatabase;
using phone::Row;

// Never destroyed: other threads may still ask while the process ends.
PhoneDatabase& book() {
    static auto& database = *new PhoneDatabase("/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb");
    return database;
}

PhoneDatabase& images() {
    static auto& database = *new PhoneDatabase("/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb");
    return database;
}

// Once each, on standard error.
void report(const std::string& problem) {
    static auto& mutex = *new std::mutex;
    static auto& reported = *new std::set<std::string>;
    const std::lock_guard<std::mutex> lock(mutex);
    if (reported.insert(problem).second) std::fprintf(stderr, "AddressBook: %s\n", problem.c_str());
}

void query(PhoneDatabase& database, const char* sql, const std::vector<PhoneDatabase::Value>& values,
           const std::function<void(const Row&)>& row) {
    if (const phone::Status rows = database.read(sql, values, row); !rows) report(rows.error().message);
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
    query(book(), "SELECT 1 FROM ABPerson WHERE ROWID = ?", {identifier}, [&](const Row&) { exists = true; });
    return exists;
}

std::optional<std::string> name(std::int32_t identifier, Name which) {
    std::optional<std::string> result;
    query(book(), selectName(which), {identifier}, [&](const Row& row) { result = row.text(0); });
    return result;
}

std::vector<std::int32_t> linkedPeople(std::int32_t identifier) {
    std::vector<std::int32_t> people;
    query(book(),
          "SELECT ROWID FROM ABPerson WHERE PersonLink = "
          "(SELECT PersonLink FROM ABPerson WHERE ROWID = ? AND PersonLink > 0) ORDER BY ROWID",
          {identifier}, [&](const Row& row) { people.push_back(static_cast<std::int32_t>(row.integer(0))); });
    return people;
}

std::vector<std::pair<std::int32_t, std::string>> phoneNumbersEndingIn(const std::vector<std::string>& lastFour) {
    std::vector<std::pair<std::int32_t, std::string>> numbers;
    if (lastFour.empty()) return numbers;
    query(book(),
          "SELECT v.record_id, v.value FROM ABPhoneLastFour f JOIN ABMultiValue v ON v.UID = f.multivalue_id "
          "WHERE f.value IN (?1, ?2) AND v.property = 3 ORDER BY v.record_id, v.identifier",
          {lastFour.front(), lastFour.back()}, [&](const Row& row) {
              numbers.emplace_back(static_cast<std::int32_t>(row.integer(0)), row.text(1).value_or(""));
          });
    return numbers;
}

bool hasImage(std::int32_t identifier) {
    bool has = false;
    query(images(),
          "SELECT EXISTS (SELECT 1 FROM ABThumbnailImage WHERE record_id = ?1 AND length(data)) OR "
          "EXISTS (SELECT 1 FROM ABFullSizeImage WHERE record_id = ?1 AND length(data))",
          {identifier}, [&](const Row& row) { has = row.integer(0) != 0; });
    return has;
}

std::optional<std::string> thumbnail(std::int32_t identifier, int format) {
    std::optional<std::string> result;
    query(images(), "SELECT data FROM ABThumbnailImage WHERE record_id = ? AND format = ? AND length(data)",
          {identifier, format}, [&](const Row& row) { result = row.bytes(0); });
    return result;
}

std::optional<std::string> fullSizeImage(std::int32_t identifier) {
    std::optional<std::string> result;
    query(images(), "SELECT data FROM ABFullSizeImage WHERE record_id = ? AND length(data)", {identifier},
          [&](const Row& row) { result = row.bytes(0); });
    return result;
}

}  // namespace address_book

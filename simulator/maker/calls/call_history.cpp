#include "simulator/maker/calls/call_history.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/phone_number/phone_number.h"

namespace maker {
namespace {

Result<Database> openBook(const std::filesystem::path& root) {
    return Database::openToRead(root / addressBookShape().path);
}

std::string nameOf(const Database& book, int contact) {
    Statement names = book.prepare(
        "SELECT coalesce(nullif(trim(coalesce(First, '') || ' ' || coalesce(Last, '')), ''), Organization, '') "
        "FROM ABPerson WHERE ROWID = ?");
    return names.bind(1, contact).step() ? names.text(0) : std::string();
}

Result<Caller> findByEmail(const Database& book, const std::string& address) {
    Statement find = book.prepare(
        "SELECT min(record_id) FROM ABMultiValue WHERE property = 4 AND value = ? COLLATE NOCASE HAVING count(*)");
    Caller caller;
    if (find.bind(1, std::string_view(address)).step()) caller.contact = find.integer(0);
    return find.status().map([&] { return caller; });
}

Result<Caller> findByNumber(const Database& book, const std::string& number, const std::string& region) {
    Statement candidates = book.prepare(
        "SELECT v.record_id, v.value FROM ABPhoneLastFour f JOIN ABMultiValue v ON v.UID = f.multivalue_id "
        "WHERE f.value IN (?1, ?2) AND v.property = 3 ORDER BY v.record_id");
    std::vector<std::string> digits = phone_number::lastFour(number, region);
    Caller caller;
    if (digits.empty()) return caller;
    candidates.bind(1, std::string_view(digits.front())).bind(2, std::string_view(digits.back()));
    phone_number::Match best = phone_number::Match::none;
    while (candidates.step()) {
        phone_number::Match match = phone_number::compare(number, candidates.text(1), region);
        if (match <= best) continue;
        best = match;
        caller.contact = candidates.integer(0);
    }
    return candidates.status().map([&] { return caller; });
}

Result<Caller> findIn(const Database& book, const std::string& address, const std::string& region) {
    bool isEmail = address.find('@') != std::string::npos;
    Result<Caller> caller = isEmail ? findByEmail(book, address) : findByNumber(book, address, region);
    if (caller && caller->contact > 0) caller->name = nameOf(book, caller->contact);
    return caller;
}

struct BookNumber {
    int contact = 0;
    std::string number;
};

// A few hundred of the book's numbers, spread over all of it.
Result<std::vector<BookNumber>> sampleNumbers(const Database& book) {
    Statement statement = book.prepare(
        "SELECT record_id, value FROM ABMultiValue WHERE property = 3 AND "
        "UID % (SELECT max(1, count(*) / 300) FROM ABMultiValue) = 0 ORDER BY UID LIMIT 400");
    std::vector<BookNumber> numbers;
    while (statement.step()) numbers.push_back({statement.integer(0), statement.text(1)});
    return statement.status().map([&] { return std::move(numbers); });
}

CallKind kindOf(int index) {
    if (index % 5 == 2) return CallKind::missed;
    return index % 3 == 1 ? CallKind::outgoing : CallKind::incoming;
}

constexpr int kGeneratedCalls = 60;

}  // namespace

Result<Callers> Callers::of(const std::filesystem::path& root, const std::string& region) {
    Result<Database> book = openBook(root);
    if (!book) return failure(book);
    return Callers(std::move(*book), region);
}

Result<Caller> Callers::find(const std::string& address) const { return findIn(book_, address, region_); }

Result<long> addWrittenCalls(AddressBookBuilder& builder, const std::filesystem::path& root,
                             const std::vector<WrittenCall>& calls, const std::string& region,
                             const Progress& progress) {
    const Result<Callers> callers = Callers::of(root, region);
    if (!callers) return failure(callers);
    long done = 0;
    for (const WrittenCall& written : calls) {
        Call call = written.call;
        if (!written.unlinked) {
            Result<Caller> caller = callers->find(call.address);
            if (!caller) return failure(caller);
            call.contact = caller->contact;
            if (!caller->name.empty()) call.name = caller->name;
        }
        Result<int> added = builder.addCall(call);
        if (!added) return failure(added);
        if (progress) progress("calls", ++done, static_cast<long>(calls.size()));
    }
    return static_cast<long>(calls.size());
}

Result<long> addGeneratedCalls(AddressBookBuilder& builder, const std::filesystem::path& root, double now,
                               std::uint32_t seed) {
    Result<Database> book = openBook(root);
    if (!book) return failure(book);
    Result<std::vector<BookNumber>> numbers = sampleNumbers(*book);
    if (!numbers) return failure(numbers);
    if (numbers->empty()) return 0L;
    // The library's distributions differ between implementations; the generator does not.
    std::mt19937 random(seed);
    double date = std::floor(now);
    for (int index = 0; index < kGeneratedCalls; ++index) {
        date -= 60 + static_cast<double>(random() % 50400);
        Call call;
        call.date = date;
        call.kind = kindOf(index);
        call.duration = call.kind == CallKind::missed ? 0 : static_cast<int>(5 + random() % 1800);
        const BookNumber& number = (*numbers)[random() % numbers->size()];
        bool unknown = index % 7 == 4;
        bool unlinked = index % 11 == 9;
        call.address = unknown ? "+1900555" + std::to_string(1000 + random() % 9000) : number.number;
        if (!unknown && !unlinked) {
            call.contact = number.contact;
            call.name = nameOf(*book, number.contact);
        }
        Result<int> added = builder.addCall(call);
        if (!added) return failure(added);
    }
    return static_cast<long>(kGeneratedCalls);
}

}  // namespace maker

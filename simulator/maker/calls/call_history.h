// Filling a root's call history.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/database.h"

namespace maker {

// Whose a number or e-mail address is: the lowest contact ID of the surest match, with the name that the history keeps.
struct Caller {
    int contact = -1;  // -1: nobody's
    std::string name;
};

// Looks addresses up in the finished address book of a root, numbers as they are read in `region`.
class Callers {
  public:
    static Result<Callers> of(const std::filesystem::path& root, const std::string& region);
    Result<Caller> find(const std::string& address) const;

  private:
    Callers(Database book, std::string region) : book_(std::move(book)), region_(std::move(region)) {}

    Database book_;
    std::string region_;
};

// Adds written calls, each with the contact that it belongs to and its name; how many.
Result<long> addWrittenCalls(AddressBookBuilder& builder, const std::filesystem::path& root,
                             const std::vector<WrittenCall>& calls, const std::string& region,
                             const Progress& progress = {});

// Makes up to 60 calls from the book's numbers over the three weeks before `now`: every fifth missed, some of unknown
// callers, some of which the history does not know the contact. The same book, `now` and seed give the same calls. How
// many.
Result<long> addGeneratedCalls(AddressBookBuilder& builder, const std::filesystem::path& root, double now,
                               std::uint32_t seed);

}  // namespace maker

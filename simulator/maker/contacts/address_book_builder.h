// Writes persons, pictures and calls into the databases of a phone root, as the phone's own programs would.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/contact.h"

namespace maker {

// One writer on a root's three databases. Everything is one transaction per database: finish() makes it visible, and a
// builder that is destroyed without it leaves the databases as they were. Not for use from several threads at once.
class AddressBookBuilder {
  public:
    // Opens the databases of a root, creating those that are missing.
    static Result<AddressBookBuilder> open(const std::filesystem::path& root);

    AddressBookBuilder(AddressBookBuilder&&) noexcept;
    AddressBookBuilder& operator=(AddressBookBuilder&&) noexcept;
    ~AddressBookBuilder();

    // Adds a person with names, numbers, addresses, photo and link; its contact ID, from 1 upwards. A photo that cannot
    // be decoded is an error, and nothing of the person is added.
    Result<int> addPerson(const Person& person);

    // Stores bytes, decodable or not, as a person's thumbnail of a format, in place of any earlier one.
    [[nodiscard]] Status setThumbnail(int contact, std::string_view bytes, int format = 0);
    // The same with NULL for the bytes.
    [[nodiscard]] Status setNullThumbnail(int contact, int format = 0);
    // Stores bytes, decodable or not, as a person's full-size image.
    [[nodiscard]] Status setFullSizeImage(int contact, std::string_view bytes);
    // Makes thumbnail and full-size image from an encoded picture. An undecodable one is an error.
    [[nodiscard]] Status setPhoto(int contact, std::string_view encoded);
    [[nodiscard]] Status removePhoto(int contact);

    // Makes the contacts one person's; the first is the preferred one for name and image.
    [[nodiscard]] Status link(const std::vector<int>& contacts);
    [[nodiscard]] Status setNames(int contact, const std::optional<std::string>& first,
                                  const std::optional<std::string>& last);
    // Seconds since 2001-01-01 UTC.
    [[nodiscard]] Status setModificationDate(int contact, double seconds);
    // Removes a person with its values, pictures and calls' references to it.
    [[nodiscard]] Status removePerson(int contact);

    // Adds a call; its row ID.
    Result<int> addCall(const Call& call);

    // Commits, then begins a new transaction.
    [[nodiscard]] Status finish();

  private:
    struct Databases;
    explicit AddressBookBuilder(std::unique_ptr<Databases> databases);
    std::unique_ptr<Databases> databases_;
};

}  // namespace maker

// A phone with an address book of the test's own, and the library loaded.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/extension.h"
#include "tests/support/pictures.h"
#include "tests/support/sleep.h"
#include "tests/support/sqlite_calls.h"

namespace test {

constexpr std::string_view kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";
constexpr std::string_view kImages = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";

class ContactsTest : public ExtensionTest {
  protected:
    using ExtensionTest::ExtensionTest;

    // Adds a contact and answers its ID; the databases have it at once.
    int add(const maker::Person& person);
    int addNamed(std::optional<std::string> first, std::optional<std::string> last);
    void setThumbnail(int contact, const std::string& bytes);
    void removePhoto(int contact);
    // Links the contacts and their names stay as they are.
    void link(const std::vector<int>& contacts);

    // Removes the pictures that stand for contacts without initials: where there is no text, no monogram is made.
    void removeSilhouettes();
    // Whether the picture is the 40 by 40 monogram of the text, of whichever colour.
    static bool isMonogramOf(NSString* text, UIImage* picture);

    // Puts something else in the place of a database; restore() brings the database back.
    void replaceByGarbage(std::string_view database);
    void replaceByDirectory(std::string_view database);
    void restore(std::string_view database);

    // Runs `restore(database)` once the library has slept for so many seconds, which pass at once (support/sleep.h).
    void restoreWhenSlept(double seconds, std::string_view database);

  private:
    maker::AddressBookBuilder builder();
};

// Seconds since some fixed moment.
double now();

// How many objects the caller's pool has to release after the work.
unsigned leftInPool(const std::function<void()>& work);

}  // namespace test

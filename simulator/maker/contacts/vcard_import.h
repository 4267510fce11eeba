// Reading contacts from a vCard file (2.1, 3.0 or 4.0), with libebook-contacts.
//
// Taken over: N (FN where there is no N), NICKNAME, ORG, TEL and EMAIL with their types or X-ABLabel as labels, and
// PHOTO, embedded or as a `data:` or `file:` address (a relative one starts at the vCard file's folder). Cards that
// carry the same X-LINKED-PERSON:TEXT are linked contacts of one person. Everything else has no place on the stand-in
// phone.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/contact.h"

namespace maker {

struct ImportedContacts {
    std::vector<Person> persons;        // in the file's order; photos are not decoded yet
    std::vector<std::string> warnings;  // what could not be taken over, naming file and contact
};

// Fails, naming file and line, for a file that cannot be read, holds no vCard, or ends within one.
Result<ImportedContacts> importVCards(const std::filesystem::path& file, const Progress& progress = {});

}  // namespace maker

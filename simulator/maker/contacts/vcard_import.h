// Reading contacts from vCards (2.1, 3.0 or 4.0), with libebook-contacts.
//
// Taken over: N (FN where there is no N), NICKNAME, ORG, TEL and EMAIL with their types or X-ABLabel as labels, and
// PHOTO, embedded or as an address (photo_address.h). Cards that carry the same X-LINKED-PERSON:TEXT are linked
// contacts of one person. A card of KIND:group is no contact. Everything else has no place on the stand-in phone.
#pragma once

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/imported_contacts.h"
#include "simulator/maker/text/text_file.h"

namespace maker {

// Appends the contacts of a text. Fails, naming file and line, for one that holds no vCard or ends within one.
[[nodiscard]] Status importVCards(const Text& text, const ImportOptions& options, ImportedContacts& imported,
                                  const Progress& progress = {});

}  // namespace maker

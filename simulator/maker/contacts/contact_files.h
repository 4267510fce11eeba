// Contacts from files of every kind: vCards, CSV, LDIF, compressed or not, and folders of them.
#pragma once

#include <filesystem>
#include <vector>

#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/imported_contacts.h"

namespace maker {

// Reads all files, and of a folder all that lie in it or below and are named as files of contacts are (.vcf, .vcard,
// .csv, .tsv, .ldif, .ldi, each also with .gz), in the order of their names. What a file is, its contents say. Fails
// for a file that cannot be read or is none of these, and for a folder without any.
Result<ImportedContacts> importContacts(const std::vector<std::filesystem::path>& places, const ImportOptions& options,
                                        const Progress& progress = {});

}  // namespace maker

// Reading contacts from CSV files as Google Contacts, Outlook, Thunderbird and the like write them.
//
// The first row names the columns. Taken over: names, nickname, organization, numbers and e-mail addresses with their
// types as labels (Google's "Phone 1 - Type" and "Phone 1 - Label", or the column's own title), and a photo's address.
// Google parts several values of one field by ":::". Columns of other titles have no place on the stand-in phone.
#pragma once

#include <vector>

#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/imported_contacts.h"
#include "simulator/maker/text/csv_table.h"

namespace maker {

// Whether a first row names columns of contacts.
bool isContactsHeader(const CsvRow& row);

// Appends the contacts of rows, of which the first names the columns.
void importCsv(const std::string& file, const std::vector<CsvRow>& rows, const ImportOptions& options,
               ImportedContacts& imported);

}  // namespace maker

// Reading contacts from LDIF (RFC 2849) as Thunderbird and directory services write it, with OpenLDAP's library.
//
// Taken over: givenName, sn, cn, mozillaNickname, o, mail, mozillaSecondEmail, telephoneNumber, homePhone, mobile,
// pager, facsimileTelephoneNumber and jpegPhoto. An entry that is a group, and one that changes or removes another, is
// no contact.
#pragma once

#include "simulator/maker/common/result.h"
#include "simulator/maker/contacts/imported_contacts.h"
#include "simulator/maker/text/text_file.h"

namespace maker {

// Appends the contacts of a text, which is UTF-8. Fails, naming file and line, for a line that is not LDIF.
[[nodiscard]] Status importLdif(const Text& text, const ImportOptions& options, ImportedContacts& imported);

}  // namespace maker

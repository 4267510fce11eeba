// The one address-book handle of the process.
#pragma once

#include "src/platform/address_book.h"

namespace zelka {

// The shared handle (+0, living at least as long as the innermost autorelease pool), made by the first call in the
// process's life; nothing once it has been given up, because it is made only once. Any thread.
ABAddressBookRef getAddressBook();

// Gives up the shared handle for the rest of the process's life (docs/compatibility.md). Any thread.
void releaseSharedAddressBook();

}  // namespace zelka

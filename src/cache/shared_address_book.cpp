#include "src/cache/shared_address_book.h"

#include "src/platform/dispatch.h"
#include "src/platform/mutex.h"
#include "src/platform/owned.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constinit std::intptr_t addressBookOnce = 0;
constinit Mutex theMutex;
constinit ABAddressBookRef theBook = nullptr;

// Takes over the new handle (+1).
void replaceBook(ABAddressBookRef book) {
    Owned<ABAddressBookRef> former;  // released after the lock
    Mutex::Lock lock(theMutex);
    former = adopt(std::exchange(theBook, book));
}

// Another thread may give the handle up at any moment. A retain under the mutex is safe here: it calls no foreign code.
Owned<ABAddressBookRef> copyBook() {
    Mutex::Lock lock(theMutex);
    return retain(theBook);
}

}  // namespace

ABAddressBookRef getAddressBook() {
    initialiseUtilityClass();
    dispatchOnce(addressBookOnce, [] { replaceBook(ABAddressBookCreate()); });
    return copyBook().autorelease();
}

void releaseSharedAddressBook() { replaceBook(nullptr); }

}  // namespace zelka

#include "src/cache/shared_address_book.h"

#include "src/platform/dispatch.h"
#include "src/platform/mutex.h"
#include "src/util/utility_class.h"

namespace {

constinit std::intptr_t addressBookOnce = 0;
constinit zelka::Mutex theMutex;
constinit ABAddressBookRef theBook = nullptr;

// Returns the handle that was there before (+1).
Owned<ABAddressBookRef> exchangeBook(ABAddressBookRef book) {
    zelka::Mutex::Lock lock(theMutex);
    return Owned<ABAddressBookRef>::adopt(std::exchange(theBook, book));
}

// Another thread may give the handle up at any moment. A retain under the mutex is safe here: it calls no foreign code.
Owned<ABAddressBookRef> copyBook() {
    zelka::Mutex::Lock lock(theMutex);
    return Owned<ABAddressBookRef>::retain(theBook);
}

}  // namespace

namespace ZelkaCBUtils {

ABAddressBookRef getAddressBook() {
    initialiseUtilityClass();
    dispatchOnce(addressBookOnce, [] { exchangeBook(ABAddressBookCreate()); });
    return copyBook().autorelease();
}

std::span<const MethodRow> sharedAddressBookMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"getAddressBook", ABAddressBookRef(), &getAddressBook>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils

void releaseSharedAddressBook() { exchangeBook(nullptr); }

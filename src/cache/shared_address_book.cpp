#include "src/cache/shared_address_book.h"

#include "src/cache/reclaimer.h"
#include "src/platform/dispatch.h"
#include "src/platform/owned.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constinit std::intptr_t addressBookOnce = 0;
// The one handle, which another thread may be about to use while it is given up.
struct SharedBook : Retired {
    explicit SharedBook(Owned<ABAddressBookRef> handle) : Retired{&destroyBook}, book(std::move(handle)) {}
    static void destroyBook(Retired* self) { delete static_cast<SharedBook*>(self); }

    Owned<ABAddressBookRef> book;
};

constinit std::atomic<SharedBook*> theBook{nullptr};
constinit Reclaimer theReclaimer;

}  // namespace

ABAddressBookRef getAddressBook() {
    initialiseUtilityClass();
    dispatchOnce(addressBookOnce, [] { theBook.store(new SharedBook(adopt(ABAddressBookCreate()))); });
    Reclaimer::Reading reading(theReclaimer);
    SharedBook* shared = theBook.load();
    return shared != nullptr ? Owned(shared->book).autorelease() : nullptr;
}

void releaseSharedAddressBook() {
    Reclaimer::Reading reading(theReclaimer);
    if (SharedBook* shared = theBook.exchange(nullptr)) theReclaimer.retire(shared);
}

}  // namespace zelka

#include "src/cache/shared_address_book.h"

#include "src/platform/dispatch.h"
#include "src/util/utility_class.h"

namespace {

constinit std::intptr_t addressBookOnce = 0;
constinit std::atomic<ABAddressBookRef> theAddressBook{nullptr};

}  // namespace

namespace ZelkaCBUtils {

ABAddressBookRef getAddressBook() {
    initialiseUtilityClass();
    dispatchOnce(addressBookOnce, [] { theAddressBook.store(ABAddressBookCreate()); });
    return theAddressBook.load(std::memory_order_acquire);
}

std::span<const MethodRow> sharedAddressBookMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"getAddressBook", ABAddressBookRef(), &getAddressBook>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils

void releaseSharedAddressBook() { Owned<ABAddressBookRef>::adopt(theAddressBook.exchange(nullptr)); }

#include "src/cache/contact_id_memo.h"

#include "src/cache/letting_go.h"
#include "src/platform/foundation/NSValue.h"

namespace zelka {
namespace {

// An entry's group is its contact ID.
constinit ObjectMap theMemo;

}  // namespace

ABRecordID rememberedContactID(NSString text) { return text ? theMemo.value<NSNumber>(text).intValue() : 0; }

void rememberContactID(NSString text, ABRecordID contactID) {
    if (text && contactID >= 1) {
        theMemo.store(NSNumber::of(contactID), text, static_cast<std::uint64_t>(contactID));
    }
}

void forgetContactID(ABRecordID contactID) {
    if (contactID >= 1) theMemo.removeOneOf(static_cast<std::uint64_t>(contactID));
}

void forgetAllContactIDs() { letGo(theMemo.clear()); }

}  // namespace zelka

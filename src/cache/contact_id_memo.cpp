#include "src/cache/contact_id_memo.h"

#include "src/cache/object_map.h"
#include "src/platform/foundation/NSValue.h"

namespace zelka {
namespace {

constinit ObjectMap theMemo;

}  // namespace

ABRecordID rememberedContactID(NSString text) { return text ? theMemo.value<NSNumber>(text).intValue() : 0; }

void rememberContactID(NSString text, ABRecordID contactID) {
    if (text && contactID >= 1) theMemo.store(NSNumber::of(contactID), text);
}

void forgetContactID(ABRecordID contactID) {
    theMemo.removeFirst<NSNumber>([&](NSNumber known) { return known.intValue() == contactID; });
}

void forgetAllContactIDs() { theMemo.clear(); }

}  // namespace zelka

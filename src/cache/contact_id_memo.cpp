#include "src/cache/contact_id_memo.h"

namespace {

constinit NSMutableDictionary theMemo;

}  // namespace

ABRecordID rememberedContactID(NSString text) { return text ? theMemo.objectFor<NSNumber>(text).intValue() : 0; }

void rememberContactID(NSString text, ABRecordID contactID) {
    if (!text || contactID < 1) return;
    if (!theMemo) theMemo = NSMutableDictionary::create().leak();
    theMemo.setObject(NSNumber::of(contactID), text);
}

void forgetContactID(ABRecordID contactID) {
    NSArray texts = theMemo.allKeys();
    for (NSUInteger index = 0; index < texts.count(); ++index) {
        auto text = texts.at<NSString>(index);
        if (rememberedContactID(text) != contactID) continue;
        theMemo.removeObject(text);
        return;
    }
}

void forgetAllContactIDs() { theMemo.removeAllObjects(); }

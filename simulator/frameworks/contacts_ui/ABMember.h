#pragma once

#include "simulator/frameworks/contacts_ui/ABUIPerson.h"

// One contact as the member lists keep it: enough to sort, to search and to show a row.
@interface ABMember : NSObject {
  @private
    ABRecordID _recordID;
    NSString* _name;
    NSString* _sortKey;
    NSString* _sectionTitle;
    ABUIPerson* _person;
}

@property (nonatomic, readonly) ABRecordID recordID;
@property (nonatomic, readonly) NSString* name;          // as shown; empty for a contact without a name; +0
@property (nonatomic, readonly) NSString* sortKey;       // folded: last name first; +0
@property (nonatomic, readonly) NSString* sectionTitle;  // "A" to "Z", or "#"; +0
@property (nonatomic, readonly) ABUIPerson* person;      // made on first use; nil when the contact is gone; +0

// Whether one of the name's words begins with the text, which has been folded.
- (BOOL)matchesFoldedText:(NSString*)text;

@end

// Without case and accents, for comparing. +0.
CG_EXTERN NSString* ABUIFold(NSString* text);

// All contacts, in the order in which the lists show them: by section, then by sort key. What cannot be read is
// reported on standard error. +0.
CG_EXTERN NSArray* ABUIReadMembers(void);

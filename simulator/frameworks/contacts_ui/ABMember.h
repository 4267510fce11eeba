#pragma once

#include "simulator/frameworks/contacts_ui/ABUIPerson.h"

// One contact as the member lists keep it: enough to sort, to search and to show a row.
@interface ABMember : NSObject {
  @private
    ABRecordID _recordID;
    NSString* _name;
    NSInteger _section;
    NSData* _sortKey;
    NSString* _sectionTitle;
    ABUIPerson* _person;
}

@property (nonatomic, readonly) ABRecordID recordID;
@property (nonatomic, readonly) NSString* name;          // as shown; empty for a contact without a name; +0
@property (nonatomic, readonly) NSString* sectionTitle;  // a letter, or "#" (name_order.h); +0
@property (nonatomic, readonly) ABUIPerson* person;      // made on first use; nil when the contact is gone; +0

// Which stands first in a list: by section, then in the language's order with the last name first.
- (NSComparisonResult)compare:(ABMember*)other;

// Whether one of the name's words begins with the text, which has been folded.
- (BOOL)matchesFoldedText:(NSString*)text;

@end

// Without case and accents, for comparing. +0.
CG_EXTERN NSString* ABUIFold(NSString* text);

// All contacts, in the order in which the lists show them. What cannot be read is reported on standard error. +0.
CG_EXTERN NSArray* ABUIReadMembers(void);

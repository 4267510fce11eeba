// One call of the history, as CallBar hands it around, and the list's entries made of calls.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/hosts/callbar/call_history.h"

// CallBar runs on several systems, and what its call objects offer differs from one to the next. The stand-in mixes
// them in one list, by the call's ROWID in the history:
//   ROWID % 3 == 0   has -uid
//   ROWID % 3 == 1   has -addressBookRecordId
//   ROWID % 3 == 2   has neither: the contact is to be found through the entry's address
// and -callerName is there when the caller's name is known and ROWID % 4 != 3.
@interface CallBarCall : NSObject {
  @private
    NSString* _address;
    NSString* _name;
    NSDate* _date;
    int _contact;
    BOOL _outgoing;
    BOOL _missed;
}

// +0; an instance of the subclass that the rule above names. The contact is the one that the history remembers if the
// address book still has it, else the one with this number; the name is the contact's, else the one remembered.
+ (CallBarCall*)callWithRow:(const callbar::CallRow&)row;

@property (nonatomic, readonly) NSString* address;      // +0
@property (nonatomic, readonly) NSString* knownName;    // the caller's; nil when nobody knows it; +0
@property (nonatomic, readonly) NSString* displayName;  // the same, else the address in its form for display; +0
@property (nonatomic, readonly) NSString* addressKind;  // "mobile", "home"..., "FaceTime", else "unknown"; +0
@property (nonatomic, readonly) NSDate* date;           // +0
@property (nonatomic, readonly) int contactIdentifier;  // the contact ID, or -1
@property (nonatomic, readonly, getter=isOutgoing) BOOL outgoing;
@property (nonatomic, readonly, getter=isMissed) BOOL missed;

@end

// The list's entries: consecutive calls of one address, all of them missed or none. Each is a dictionary of "calls"
// (the calls, the latest first) and "address". Both arrays +0.
NSArray* CallBarEntriesOfCalls(NSArray* calls);
NSArray* CallBarMissedCalls(NSArray* calls);

// The phone's whole history, the latest call first; what cannot be read is reported on standard error. +0.
NSArray* CallBarReadCalls(void);

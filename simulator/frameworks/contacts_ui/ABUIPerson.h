// A contact as Contacts UI hands it around.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/address_book/address_book.h"
#include "simulator/frameworks/core_graphics/base.h"

// The one book of this process's screens, never released. Main thread.
CG_EXTERN ABAddressBookRef ABUISharedAddressBook(void);

// The first letters of the first and the last word, in capitals; may be empty. +0.
CG_EXTERN NSString* ABUIInitialsOfName(NSString* name);

// The two parts of a name joined: "First Last", or family name first and no space when both are in Chinese, Japanese or
// Korean letters; the other when one is nil or empty. +0; nil when both are.
CG_EXTERN NSString* ABUICompositeName(NSString* first, NSString* last);

@interface ABUIPerson : NSObject {
  @private
    ABRecordRef _record;
}

// +0. The record is retained.
+ (ABUIPerson*)personWithRecord:(ABRecordRef)record;
// +0; nil when the address book has no such contact.
+ (ABUIPerson*)personWithRecordID:(ABRecordID)identifier;

@property (nonatomic, readonly) ABRecordRef record;  // unowned
- (ABRecordID)recordID;

// First and last name (see ABUICompositeName), else organization, else nickname; nil when it has none of them. +0.
- (NSString*)compositeName;
// Up to two letters, for a monogram; may be empty. +0.
- (NSString*)initials;

// The contacts linked into one person with this one, itself included (alone when linked to nothing), in the address
// book's order. +0.
- (NSArray*)linkedPeople;
// The contact whose photo stands for all linked ones: the receiver if it has one, else the first that has, else the
// receiver. +0.
- (ABUIPerson*)preferredPersonForPhoto;
// The encoded thumbnail of the receiver's own photo; nil when it has none. +0.
- (NSData*)preferredPhotoThumbnail;

@end

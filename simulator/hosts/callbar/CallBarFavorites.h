// The phone's favourites, as the telephone keeps them for all who show them.
#pragma once

#import <Foundation/Foundation.h>

@interface CallBarFavorite : NSObject {
  @private
    NSString* _name;
    int _contact;
}

@property (nonatomic, readonly) NSString* name;         // the contact's now, else the one kept; +0
@property (nonatomic, readonly) int contactIdentifier;  // the contact ID kept, or -1

@end

// From "/private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist": an array of dictionaries with
// "ABUid" (contact ID), "Name" and "Value" (the number). No file: no favourites. What is not of that form is reported
// on standard error and left out. +0.
NSArray* CallBarReadFavorites(void);

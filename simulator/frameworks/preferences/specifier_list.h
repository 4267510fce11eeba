// Specifiers from property lists. Main thread.
#pragma once

#import <Foundation/Foundation.h>

namespace preferences {

// The specifiers (+0) of a list's items, each a dictionary. Their texts are localised with the table of the bundle; nil
// for both: taken as they are. Getter and setter are the items' "get" and "set"; an item with a "key" has
// PSViewController's when it names none. Raises for what is no list of items, and for cells that the stand-in does not
// have.
NSArray* specifiersOf(NSArray* items, id target, NSBundle* bundle, NSString* table);

// A text of the table, or the text itself. +0.
NSString* localized(NSString* text, NSBundle* bundle, NSString* table);

}  // namespace preferences

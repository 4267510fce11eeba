// Which mutable dictionaries of this process are emptied.
#pragma once

#import <Foundation/Foundation.h>

namespace test {

// From now on, notes what each dictionary held that is sent removeAllObjects.
void watchEmptiedDictionaries();

// What the dictionaries with that key held, in their order.
NSArray* emptiedDictionariesWith(NSString* key);

}  // namespace test

#pragma once

#import <Foundation/Foundation.h>

// Property lists as a phone reads and writes them. Any thread.

namespace phone {

// Whether the bytes begin as the binary notation does.
bool isBinaryPropertyList(NSData* data);

// Whether a phone knows the notation and Foundation's reader can be let loose on the bytes: here, that reader believes
// what a damaged binary list says of its own lengths.
bool isSoundNotation(NSData* data);

// The same list with blanks behind a text's end, which mean nothing: that reader compares words with what may be
// shorter.
NSData* withBlanksBehind(NSData* data);

// Whether there are only texts, numbers, dates, data, arrays, and dictionaries with texts for keys in it. Foundation's
// own test lets every object through.
bool isPropertyList(id object);

// What the bytes hold, autoreleased; nil for what is no property list, for which Foundation may raise.
id readPropertyList(NSData* data);

}  // namespace phone

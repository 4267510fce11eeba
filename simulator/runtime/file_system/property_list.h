#pragma once

#import <Foundation/Foundation.h>

#include <functional>

// Property lists as a phone reads and writes them. Any thread. The notations are those of Apple's "Property List
// Programming Guide": XML (the document type PropertyList-1.0.dtd), binary (described in CFBinaryPList.c of the
// published CoreFoundation, which begins with "bplist") and the old style ("Old-Style ASCII Property Lists").

namespace phone {

// Whether the bytes begin as the binary notation does.
bool isBinaryPropertyList(NSData* data);

// Whether there are only texts, numbers, dates, data, arrays, and dictionaries with texts for keys in it. Foundation's
// own test lets every object through.
bool isPropertyList(id object);

// What the bytes hold, autoreleased; nil for what is no property list, for which Foundation may raise.
id readPropertyList(NSData* data);
// The same by a reader of Foundation's, which is given only what it can be let loose on.
id readPropertyList(NSData* data, const std::function<id(NSData* sound)>& read);

}  // namespace phone

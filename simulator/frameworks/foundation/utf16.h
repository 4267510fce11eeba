#pragma once

#import <Foundation/Foundation.h>

#include <string>

namespace phone {

// The text's code units.
std::u16string utf16(NSString* text);
// An autoreleased string of these code units, whatever they are: an unpaired surrogate is one character of it.
NSString* stringFrom(const std::u16string& units);
// UTF-8, with U+FFFD for every unpaired surrogate.
std::string utf8(NSString* text);
// Whether every surrogate has its other half.
bool isWellFormed(const char16_t* units, size_t count);

}  // namespace phone

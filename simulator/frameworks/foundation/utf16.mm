#include "simulator/frameworks/foundation/utf16.h"

#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace phone {

std::u16string utf16(NSString* text) {
    std::u16string units([text length], u'\0');
    [text getCharacters:reinterpret_cast<unichar*>(units.data()) range:NSMakeRange(0, units.size())];
    return units;
}

NSString* stringFrom(const std::u16string& units) {
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(units.data()) length:units.size()];
}

std::string utf8(NSString* text) {
    const std::u16string units = utf16(text);
    std::string bytes(units.size() * 3, '\0');  // no code unit takes more
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strToUTF8WithSub(bytes.data(), static_cast<int32_t>(bytes.size()), &length, units.data(),
                       static_cast<int32_t>(units.size()), 0xFFFD, nullptr, &status);
    bytes.resize(static_cast<size_t>(length));
    return bytes;
}

bool isWellFormed(const char16_t* units, size_t count) {
    for (size_t at = 0; at < count;) {
        UChar32 character = 0;
        U16_NEXT(units, at, count, character);
        if (U_IS_SURROGATE(character)) return false;
    }
    return true;
}

}  // namespace phone

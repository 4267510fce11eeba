#include "src/util/phone_numbers.h"

#include <algorithm>
#include <memory>

#include "src/platform/address_book.h"
#include "src/platform/owned.h"

namespace zelka {
namespace {

constexpr bool isLayout(std::uint16_t character) {
    return character == u' ' || character == u'(' || character == u')' || character == u'-';
}

}  // namespace

NSString getFormattedPhoneNumber(NSString number) { return ABPhoneFormatting::copyPhoneNumber(number).autorelease(); }

NSString getPlainPhoneNumber(NSString number) {
    auto length = static_cast<std::int32_t>(number.length());
    Owned<NSMutableString> plain = NSMutableString::create(number.length());
    if (length >= 1) {
        auto count = static_cast<NSUInteger>(length);
        auto characters = std::make_unique<std::uint16_t[]>(count);
        number.getCharacters(characters.get(), {0, count});
        auto* end = std::remove_if(characters.get(), characters.get() + count, isLayout);
        auto kept = static_cast<NSUInteger>(end - characters.get());
        plain->appendString(NSString::fromCharacters(characters.get(), kept));
    }
    return plain.autorelease();
}

NSString getPhoneNumberFromURL(NSString link) {
    constexpr NSUInteger kSchemeLength = 6;
    if (!link.contains(literal<"tel://">())) return link;
    NSUInteger query = link.rangeOfString(literal<"?">()).location;
    if (query == kNotFound) return link;
    // Meant for links that begin with the scheme: the number is cut from behind the scheme's length wherever it stood.
    return link.substringWithRange({kSchemeLength, query - kSchemeLength});
}

}  // namespace zelka

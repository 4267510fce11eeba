#include "src/platform/log.h"

#include <cstdio>

extern "C" void NSLog(id format, ...);

namespace zelka {

TextBuilder::TextBuilder() : text_(NSMutableString::create()) {}

void TextBuilder::append(const char* utf8) {
    NSString part = utf8 != nullptr ? NSString::fromUTF8(utf8) : NSString{};
    text_->appendString(part ? part : literal<"(null)">());
}

void TextBuilder::append(NSObject object) {
    NSString part = object ? object.description() : NSString{};
    text_->appendString(part ? part : literal<"(null)">());
}

void TextBuilder::append(long long number) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%lld", number);
    text_->appendString(NSString::fromUTF8(digits));
}

void logText(NSString text) { NSLog(literal<"%@">().object, text.object); }

}  // namespace zelka

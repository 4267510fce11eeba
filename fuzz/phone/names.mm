// Names of any code units: their initials, held against the rule, and the picture drawn of them.

#include <glib.h>

#include <vector>

#include "fuzz/phone/utf16.h"
#include "tests/support/zelkacb.h"

namespace {

bool isHigh(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool isLow(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

bool isAlphanumeric(gunichar character) {
    switch (g_unichar_type(character)) {
        case G_UNICODE_LOWERCASE_LETTER:
        case G_UNICODE_MODIFIER_LETTER:
        case G_UNICODE_OTHER_LETTER:
        case G_UNICODE_TITLECASE_LETTER:
        case G_UNICODE_UPPERCASE_LETTER:
        case G_UNICODE_SPACING_MARK:
        case G_UNICODE_ENCLOSING_MARK:
        case G_UNICODE_NON_SPACING_MARK:
        case G_UNICODE_DECIMAL_NUMBER:
        case G_UNICODE_LETTER_NUMBER:
        case G_UNICODE_OTHER_NUMBER:
            return true;
        default:
            return false;
    }
}

// The first code unit of every word, and of the text itself with separators as spaces.
struct Read {
    std::u16string wordBeginnings;
    char16_t first = u' ';
};

Read read(const std::u16string& units) {
    Read result;
    bool inWord = false;
    for (std::size_t at = 0; at < units.size();) {
        const bool pair = isHigh(units[at]) && at + 1 < units.size() && isLow(units[at + 1]);
        const gunichar character =
            pair ? 0x10000u + ((units[at] - 0xD800u) << 10) + (units[at + 1] - 0xDC00u) : gunichar(units[at]);
        const bool belongs = isAlphanumeric(character);
        if (belongs && !inWord) result.wordBeginnings += units[at];
        if (belongs && at == 0) result.first = units[at];
        inWord = belongs;
        at += pair ? 2 : 1;
    }
    return result;
}

std::u16string expectedInitials(const std::u16string& name) {
    if (name.empty()) return name;
    std::u16string unquoted = name;
    std::erase(unquoted, u'"');
    const Read all = read(unquoted);
    if (all.wordBeginnings.size() >= 2) return std::u16string{all.wordBeginnings.front(), all.wordBeginnings.back()};
    return std::u16string(1, all.first);
}

void draw(NSString* text) {
    UIImage* picture = [Utils monogramImage:text contactID:0 size:CGSizeMake(40, 40)];
    if ([text length] == 0) return;
    if (picture == nil || [picture size].width != 40 || [picture size].height != 40)
        fuzz::fail("no picture of 40 x 40 points for the text " + fuzz::spelled(fuzz::unitsOf(text)));
}

}  // namespace

void fuzz::names(Bytes input) {
    const std::u16string units = unitsOf(input);
    NSString* name = string(units);
    const std::u16string expected = expectedInitials(units);
    NSString* initials = nil;
    NSString* raised = raisedBy([&] { initials = [Utils monogramTextFromName:name]; });
    if (raised != nil) fail(spelled(units) + " raises " + [raised UTF8String]);
    if (unitsOf(initials) != expected)
        fail("the initials of " + spelled(units) + " are " + spelled(unitsOf(initials)) + ", not " + spelled(expected));
    draw(initials);
    constexpr NSUInteger kDrawnLength = 24;
    draw([name substringToIndex:MIN([name length], kDrawnLength)]);
}

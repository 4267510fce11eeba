// The initials of names of many languages and shapes, each as it is known (known_names.tsv). docs/names.md counts where
// they are those that a person of the language expects.
#include "tests/unit/contacts/contacts_test.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace {

struct KnownName {
    std::string language, shape, name, initials, drawn, expected;
};

std::string unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == 't' || next == 'n' || next == '\\') {
            result += next == 't' ? '\t' : (next == 'n' ? '\n' : '\\');
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::vector<KnownName> knownNames() {
    std::ifstream file(ZELKA_SOURCES "/tests/unit/contacts/known_names.tsv");
    std::vector<KnownName> names;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        KnownName name;
        for (std::string* field :
             {&name.language, &name.shape, &name.name, &name.initials, &name.drawn, &name.expected})
            std::getline(fields, *field, '\t');
        name.name = unescaped(name.name);
        names.push_back(name);
    }
    return names;
}

// UTF-8, and half a character as "\uD83D".
std::string written(NSString* text) {
    std::string result;
    for (NSUInteger i = 0; i < [text length]; ++i) {
        const unichar unit = [text characterAtIndex:i];
        if (unit >= 0xD800 && unit <= 0xDFFF) {
            char half[8];
            std::snprintf(half, sizeof half, "\\u%04X", unit);
            result += half;
        } else {
            result += [[text substringWithRange:NSMakeRange(i, 1)] UTF8String];
        }
    }
    return result;
}

class KnownNames : public test::ContactsTest {
  protected:
    KnownNames() { boot(); }
};

TEST_F(KnownNames, HaveTheirInitials) {
    const std::vector<KnownName> names = knownNames();
    ASSERT_GE(names.size(), 1000u);
    for (const KnownName& known : names) {
        @autoreleasepool {
            NSString* initials = [Utils monogramTextFromName:[NSString stringWithUTF8String:known.name.c_str()]];
            EXPECT_EQ(written(initials), known.initials) << known.language << ", " << known.shape << ": " << known.name;
            EXPECT_EQ(written([initials uppercaseString]), known.drawn) << known.name;
        }
    }
}

}  // namespace

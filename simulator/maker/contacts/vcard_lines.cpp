#include "simulator/maker/contacts/vcard_lines.h"

#include <glib.h>

#include <algorithm>
#include <string_view>

#include "simulator/maker/text/utf8.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

std::string upper(std::string_view text) {
    phone::GText result(g_ascii_strup(text.data(), static_cast<gssize>(text.size())));
    return result.get();
}

std::string_view withoutBlanksBehind(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool isLine(std::string_view line, std::string_view expected) { return upper(withoutBlanksBehind(line)) == expected; }

bool endsWith(std::string_view text, char end) { return !text.empty() && text.back() == end; }

// Where the first of these characters stands outside of quotes and of the brackets of Android's X-CUSTOM(...).
std::size_t findOutside(std::string_view text, std::string_view wanted, std::size_t start = 0) {
    bool quoted = false;
    int depth = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (!quoted && depth == 0 && wanted.find(text[i]) != std::string_view::npos) return i;
        if (text[i] == '(') ++depth;
        if (text[i] == ')' && depth > 0) --depth;
    }
    return std::string_view::npos;
}

std::vector<std::string> splitOutside(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(findOutside(text, std::string_view(&separator, 1), start), text.size());
        parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

// One property, still in its bytes.
struct Property {
    std::string name;  // with its group
    std::vector<std::string> parameters;
    std::string value;
    int line = 0;

    bool is(std::string_view coding) const {
        return std::any_of(parameters.begin(), parameters.end(), [&](const std::string& parameter) {
            const std::string word = upper(parameter);
            return word == coding || word == "ENCODING=" + std::string(coding);
        });
    }
    bool isQuotedPrintable() const { return is("QUOTED-PRINTABLE"); }
    bool isBase64() const { return is("BASE64") || is("B"); }

    // Takes the character set out of the parameters; empty when none is named.
    std::string takeCharset() {
        std::string charset;
        const auto isCharset = [&](const std::string& parameter) {
            if (upper(parameter).rfind("CHARSET=", 0) != 0) return false;
            charset = parameter.substr(8);
            return true;
        };
        parameters.erase(std::remove_if(parameters.begin(), parameters.end(), isCharset), parameters.end());
        charset.erase(std::remove(charset.begin(), charset.end(), '"'), charset.end());
        return charset;
    }
    void dropQuotedPrintable() {
        const auto isCoding = [](const std::string& parameter) {
            return upper(parameter) == "QUOTED-PRINTABLE" || upper(parameter) == "ENCODING=QUOTED-PRINTABLE";
        };
        parameters.erase(std::remove_if(parameters.begin(), parameters.end(), isCoding), parameters.end());
    }
};

// A line without a colon has no value.
Property propertyOf(std::string_view line, int number) {
    Property property;
    property.line = number;
    const std::size_t colon = std::min(findOutside(line, ":"), line.size());
    property.parameters = splitOutside(line.substr(0, colon), ';');
    property.name = property.parameters.front();
    property.parameters.erase(property.parameters.begin());
    property.value = line.substr(std::min(colon + 1, line.size()));
    return property;
}

bool isBase64Text(std::string_view line) {
    const std::string_view text = withoutBlanksBehind(line);
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return g_ascii_isalnum(c) || c == '+' || c == '/' || c == '=';
    });
}

// Reads the properties of a card, of which each may take several lines.
class LineReader {
  public:
    explicit LineReader(std::vector<TextLine> lines) : lines_(std::move(lines)) {
        // Files that were joined to one have their marks in the middle.
        for (TextLine& line : lines_)
            if (line.bytes.substr(0, 3) == "\xEF\xBB\xBF") line.bytes.remove_prefix(3);
    }

    bool atEnd() const { return next_ >= lines_.size(); }
    const TextLine& next() const { return lines_[next_]; }
    void skip() { ++next_; }

    Property property() {
        const int number = next().number;
        std::string line(lines_[next_++].bytes);
        // A parameter in quoted-printable may be too long for a line, too.
        while (findOutside(line, ":") == std::string::npos && line.find('(') != std::string::npos &&
               endsWith(line, '='))
            joinSoftly(line);
        const Property first = propertyOf(line, number);
        if (first.isQuotedPrintable()) {
            while (endsWith(withoutBlanksBehind(line), '=') && !atEnd()) joinSoftly(line);
        } else if (first.isBase64()) {
            while (!atEnd() && continuesBase64(next().bytes)) appendBase64(line);
        } else {
            while (!atEnd() && isFolded(next().bytes)) line += lines_[next_++].bytes.substr(1);
        }
        return propertyOf(line, number);
    }

  private:
    static bool isFolded(std::string_view line) { return !line.empty() && (line[0] == ' ' || line[0] == '\t'); }
    static bool continuesBase64(std::string_view line) { return isFolded(line) || isBase64Text(line); }

    void joinSoftly(std::string& line) {
        line.resize(withoutBlanksBehind(line).size() - 1);
        if (!atEnd()) line += lines_[next_++].bytes;
    }
    void appendBase64(std::string& line) {
        for (const char c : lines_[next_++].bytes)
            if (c != ' ' && c != '\t') line += c;
    }

    std::vector<TextLine> lines_;
    std::size_t next_ = 0;
};

// Stands for what was written as =3B, so that it is not taken for the sign between two parts of a value.
constexpr char kWrittenSemicolon = '\x1F';

std::string decodedQuotedPrintable(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool coded =
            text[i] == '=' && i + 2 < text.size() && g_ascii_isxdigit(text[i + 1]) && g_ascii_isxdigit(text[i + 2]);
        if (!coded) {
            bytes += text[i];
            continue;
        }
        const char byte = static_cast<char>(16 * g_ascii_xdigit_value(text[i + 1]) + g_ascii_xdigit_value(text[i + 2]));
        bytes += byte == ';' ? kWrittenSemicolon : byte;
        i += 2;
    }
    return bytes;
}

// As the parser expects text: line ends and written semicolons with a backslash.
std::string escapedValue(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        if (text[i] == '\n' || text[i] == '\r') {
            value += "\\n";
        } else if (text[i] == kWrittenSemicolon) {
            value += "\\;";
        } else {
            value += text[i];
        }
    }
    return value;
}

// What Android writes for a telephone type of the user's own: X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=42=6F),
// or the bare name.
struct CustomType {
    std::string charset, bytes;
};
CustomType customTypeOf(const std::string& parameter) {
    CustomType type;
    const std::size_t open = parameter.find('(');
    std::string inside = parameter.substr(open + 1, parameter.rfind(')') - open - 1);
    bool encoded = false;
    for (std::size_t comma; (comma = inside.find(',')) != std::string::npos; inside.erase(0, comma + 1)) {
        const std::string word = upper(std::string_view(inside).substr(0, comma));
        if (word.rfind("CHARSET=", 0) == 0) {
            type.charset = inside.substr(8, comma - 8);
        } else if (word == "ENCODING=QUOTED-PRINTABLE") {
            encoded = true;
        } else {
            break;
        }
    }
    type.bytes = encoded ? decodedQuotedPrintable(inside) : inside;
    return type;
}

bool isCustomType(const std::string& parameter) {
    return upper(parameter).rfind("X-CUSTOM(", 0) == 0 && endsWith(parameter, ')');
}

// And for one of letters and digits alone: X-Boat.
bool isPlainCustomType(const std::string& parameter) {
    return upper(parameter).rfind("X-", 0) == 0 && parameter.size() > 2 && parameter.find('=') == std::string::npos;
}

bool hasLabels(const Property& property) {
    const std::string name = upper(property.name.substr(property.name.find('.') + 1));
    return name == "TEL" || name == "EMAIL";
}

// What the parser takes for the name of a parameter; at another letter it would leave the line for the next one.
bool isName(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return c >= 0x80 || g_ascii_isalnum(c) || c == '-' || c == '_' || c == ',';
    });
}

// Writes properties anew, without their dress.
class Writer {
  public:
    Writer(const Text& text, const std::string& charset, Findings& findings)
        : text_(text), charset_(charset), findings_(findings) {}

    void add(Property property, std::string& card) {
        const std::string charset = property.takeCharset();
        std::string value = property.value;
        if (property.isQuotedPrintable()) {
            property.dropQuotedPrintable();
            value = escapedValue(utf8(decodedQuotedPrintable(value), charset, property.line));
        } else if (!property.isBase64()) {
            value = escapedValue(utf8(value, charset, property.line));
        }
        const std::string label = takeCustomType(property);
        std::string head = property.name;
        for (const std::string& parameter : property.parameters) {
            const std::size_t equals = parameter.find('=');
            const bool readable = equals != 0 && isName(std::string_view(parameter).substr(0, equals));
            if (!readable && equals != std::string::npos) {
                findings_.push_back({FindingKind::mended, text_.file, property.line,
                                     "the parameter \"" + madeValid(parameter) + "\" cannot be read and is left out"});
                continue;
            }
            head += (readable ? ";" : ";TYPE=") + utf8(parameter, charset, property.line);
        }
        if (!label.empty()) {
            const std::string group = "zelka" + std::to_string(++groups_) + ".";
            const std::size_t dot = property.name.find('.');
            head.replace(0, dot == std::string::npos ? 0 : dot + 1, group);
            card += group + "X-ABLabel:" + escapedValue(label) + "\n";
        }
        card += head + ":" + value + "\n";
    }

  private:
    std::string utf8(const std::string& bytes, const std::string& charset, int line) {
        return madeUtf8(bytes, {charset, charset_}, text_.file, line, findings_);
    }

    std::string takeCustomType(Property& property) {
        if (!hasLabels(property)) return {};
        std::vector<std::string>& parameters = property.parameters;
        auto custom = std::find_if(parameters.begin(), parameters.end(), isCustomType);
        const bool plain = custom == parameters.end();
        if (plain) custom = std::find_if(parameters.begin(), parameters.end(), isPlainCustomType);
        if (custom == parameters.end()) return {};
        const CustomType type = plain ? CustomType{{}, custom->substr(2)} : customTypeOf(*custom);
        parameters.erase(custom);
        return utf8(type.bytes, type.charset, property.line);
    }

    const Text& text_;
    const std::string& charset_;
    Findings& findings_;
    int groups_ = 0;
};

tl::unexpected<phone::Failure> unfinished(const std::string& file, int line) {
    return failure(placeOf(file, line) + ": BEGIN:VCARD without END:VCARD");
}

}  // namespace

Result<std::vector<VCard>> splitVCards(const Text& text, const std::string& charset, Findings& findings) {
    std::vector<VCard> cards;
    LineReader reader(linesOf(text.bytes));
    Writer writer(text, charset, findings);
    bool inside = false;
    while (!reader.atEnd()) {
        const TextLine& line = reader.next();
        const int number = line.number;
        if (isLine(line.bytes, "BEGIN:VCARD")) {
            if (inside) return unfinished(text.file, cards.back().line);
            inside = true;
            cards.push_back({"BEGIN:VCARD\n", number});
            reader.skip();
        } else if (isLine(line.bytes, "END:VCARD") && inside) {
            inside = false;
            cards.back().text += "END:VCARD\n";
            reader.skip();
        } else if (withoutBlanksBehind(line.bytes).empty()) {
            reader.skip();
        } else if (inside) {
            writer.add(reader.property(), cards.back().text);
        } else {
            findings.push_back(
                {FindingKind::skipped, text.file, number, "this line stands in no vCard and is left out"});
            reader.skip();
        }
    }
    if (inside) return unfinished(text.file, cards.back().line);
    if (cards.empty()) return failure(text.file + ": there is no vCard in it");
    return cards;
}

}  // namespace maker

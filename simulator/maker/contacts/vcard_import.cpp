#include "simulator/maker/contacts/vcard_import.h"

#include <libebook-contacts/libebook-contacts.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <system_error>

#include "simulator/maker/common/read_file.h"
#include "simulator/maker/contacts/utf8.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

struct FreeName {
    void operator()(EContactName* name) const { e_contact_name_free(name); }
};

std::string upper(std::string_view text) {
    phone::GText result(g_ascii_strup(text.data(), static_cast<gssize>(text.size())));
    return result.get();
}

bool isLine(std::string_view line, std::string_view expected) {
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
    return upper(line) == expected;
}

// The parser does not always see that a quoted-printable line goes on, so it gets such a line whole.
void appendLine(std::string& card, std::string_view line) {
    std::size_t lastLine = card.empty() ? 0 : card.rfind('\n', card.size() - 2) + 1;
    bool goesOn = card.size() >= 2 && card.substr(card.size() - 2) == "=\n" &&
                  upper(std::string_view(card).substr(lastLine)).find("QUOTED-PRINTABLE") != std::string::npos;
    if (goesOn) card.resize(card.size() - 2);
    card.append(line).append("\n");
}

struct Card {
    std::string text;
    int line = 0;  // where it begins
};

Result<std::vector<Card>> splitCards(const std::string& content, const std::string& file) {
    std::vector<Card> cards;
    bool inside = false;
    int number = 0;
    for (std::size_t start = 0; start < content.size();) {
        std::size_t end = std::min(content.find('\n', start), content.size());
        std::string_view line(content.data() + start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (++number == 1 && line.substr(0, 3) == "\xEF\xBB\xBF") line.remove_prefix(3);
        if (isLine(line, "BEGIN:VCARD")) {
            if (inside) break;
            inside = true;
            cards.push_back({std::string(), number});
        }
        if (!inside) continue;
        appendLine(cards.back().text, line);
        if (isLine(line, "END:VCARD")) inside = false;
    }
    if (inside) {
        return failure(file + ", line " + std::to_string(cards.back().line) + ": BEGIN:VCARD without END:VCARD");
    }
    if (cards.empty()) return failure(file + ": there is no vCard in it");
    return cards;
}

// One line of a card: its values, decoded, and its types.
struct Line {
    std::string group;
    std::string name;
    std::vector<std::string> values;
    std::set<std::string> types;
    bool encoded = false;

    std::optional<std::string> value(std::size_t index) const {
        if (index >= values.size() || values[index].empty()) return std::nullopt;
        return values[index];
    }
    std::string whole() const {
        std::string result;
        for (const std::string& part : values) result += (&part == &values.front() ? "" : ";") + part;
        return result;
    }
};

Line readLine(EVCardAttribute* attribute) {
    Line line;
    const char* group = e_vcard_attribute_get_group(attribute);
    line.group = group ? group : "";
    line.name = upper(e_vcard_attribute_get_name(attribute));
    for (GList* item = e_vcard_attribute_get_values_decoded(attribute); item; item = item->next) {
        const auto* text = static_cast<const GString*>(item->data);
        line.values.emplace_back(text->str, text->len);
    }
    for (GList* item = e_vcard_attribute_get_params(attribute); item; item = item->next) {
        auto* parameter = static_cast<EVCardAttributeParam*>(item->data);
        std::string name = upper(e_vcard_attribute_param_get_name(parameter));
        if (name == "ENCODING") line.encoded = true;
        if (name != "TYPE") continue;
        for (GList* value = e_vcard_attribute_param_get_values(parameter); value; value = value->next) {
            std::string types = upper(static_cast<const char*>(value->data)) + ",";
            for (std::size_t start = 0, end; (end = types.find(',', start)) != std::string::npos; start = end + 1) {
                line.types.insert(types.substr(start, end - start));
            }
        }
    }
    return line;
}

std::vector<Line> readLines(const std::string& card) {
    const phone::GObjectPointer<EVCard> parsed(e_vcard_new_from_string(card.c_str()));
    std::vector<Line> lines;
    for (GList* item = e_vcard_get_attributes(parsed.get()); item; item = item->next) {
        lines.push_back(readLine(static_cast<EVCardAttribute*>(item->data)));
    }
    return lines;
}

const Line* find(const std::vector<Line>& lines, std::string_view name) {
    auto found = std::find_if(lines.begin(), lines.end(), [&](const Line& line) { return line.name == name; });
    return found == lines.end() ? nullptr : &*found;
}

std::optional<std::string> nonEmpty(const char* text) {
    if (!text || !*text) return std::nullopt;
    return text;
}

void readName(const std::vector<Line>& lines, Person& person) {
    if (const Line* nickname = find(lines, "NICKNAME")) person.nickname = nickname->value(0);
    if (const Line* organization = find(lines, "ORG")) person.organization = organization->value(0);
    if (const Line* name = find(lines, "N")) {
        person.last = name->value(0);
        person.first = name->value(1);
        person.middle = name->value(2);
        person.prefix = name->value(3);
        person.suffix = name->value(4);
    }
    const Line* formatted = find(lines, "FN");
    bool named = person.first || person.last || person.middle || person.prefix || person.suffix;
    if (named || !formatted || !formatted->value(0) || formatted->value(0) == person.organization) return;
    std::unique_ptr<EContactName, FreeName> parts(e_contact_name_from_string(formatted->values[0].c_str()));
    person.last = nonEmpty(parts->family);
    person.first = nonEmpty(parts->given);
    person.middle = nonEmpty(parts->additional);
    person.prefix = nonEmpty(parts->prefixes);
    person.suffix = nonEmpty(parts->suffixes);
}

// The phone's own names of labels, the first type that is there winning.
struct Label {
    const char *name, *first, *second;
    const char* label;
};
constexpr Label kLabels[] = {
    {"TEL", "FAX", "HOME", "_$!<HomeFAX>!$_"}, {"TEL", "FAX", "WORK", "_$!<WorkFAX>!$_"},
    {"TEL", "FAX", "", "_$!<OtherFAX>!$_"},    {"TEL", "PAGER", "", "_$!<Pager>!$_"},
    {"TEL", "IPHONE", "", "iPhone"},           {"TEL", "CELL", "", "_$!<Mobile>!$_"},
    {"TEL", "MAIN", "", "_$!<Main>!$_"},       {"", "HOME", "", "_$!<Home>!$_"},
    {"", "WORK", "", "_$!<Work>!$_"},          {"", "OTHER", "", "_$!<Other>!$_"},
};

std::string labelOf(const Line& line, const std::vector<Line>& lines) {
    for (const Line& other : lines) {
        if (!line.group.empty() && other.group == line.group && other.name == "X-ABLABEL") return other.whole();
    }
    for (const Label& label : kLabels) {
        bool named = !*label.name || line.name == label.name;
        bool typed = line.types.count(label.first) && (!*label.second || line.types.count(label.second));
        if (named && typed) return label.label;
    }
    return {};
}

std::vector<LabelledValue> readValues(const std::vector<Line>& lines, std::string_view name, std::string_view scheme) {
    std::vector<LabelledValue> values;
    for (const Line& line : lines) {
        if (line.name != name) continue;
        std::string value = line.whole();
        if (g_ascii_strncasecmp(value.c_str(), scheme.data(), scheme.size()) == 0) value.erase(0, scheme.size());
        if (!value.empty()) values.push_back({std::move(value), labelOf(line, lines)});
    }
    return values;
}

bool startsWith(const std::string& text, std::string_view prefix) {
    return g_ascii_strncasecmp(text.c_str(), prefix.data(), prefix.size()) == 0;
}

Result<std::string> readDataAddress(const std::string& address) {
    std::size_t comma = address.find(',');
    if (comma == std::string::npos) return failure("a data: address without data");
    std::string data = address.substr(comma + 1);
    if (address.substr(0, comma).find(";base64") == std::string::npos) return failure("a data: address not in base64");
    gsize length = 0;
    phone::GText bytes(reinterpret_cast<gchar*>(g_base64_decode(data.c_str(), &length)));
    return std::string(bytes.get(), length);
}

Result<std::string> readFileAddress(std::string address, const std::filesystem::path& folder) {
    if (startsWith(address, "file:")) address.erase(0, 5);
    if (startsWith(address, "//localhost/")) address.erase(0, 11);
    if (startsWith(address, "//")) address.erase(0, 2);
    phone::GText unescaped(g_uri_unescape_string(address.c_str(), nullptr));
    if (!unescaped || !*unescaped) return failure("the address " + address + " names no file");
    const std::filesystem::path file = folder / unescaped.get();
    std::error_code error;
    // Devices and pipes may never end; only the person at the command line can mean one.
    if (std::filesystem::is_other(file, error)) return failure(file.string() + ": is not a file");
    return readFile(file);
}

Result<std::string> readPhoto(const Line& line, const std::filesystem::path& folder) {
    std::string value = line.whole();
    if (line.encoded) return value;
    if (startsWith(value, "data:")) return readDataAddress(value);
    std::size_t scheme = value.find("://");
    if (scheme != std::string::npos && !startsWith(value, "file:")) {
        return failure("pictures are not fetched from " + value);
    }
    return readFileAddress(std::move(value), folder);
}

// Everything but the photo.
Person readPerson(const std::vector<Line>& lines) {
    Person person;
    readName(lines, person);
    person.phones = readValues(lines, "TEL", "tel:");
    person.emails = readValues(lines, "EMAIL", "mailto:");
    if (const Line* linked = find(lines, "X-LINKED-PERSON")) person.linkedAs = linked->whole();
    return person;
}

Status takePhoto(const Line& line, const std::filesystem::path& folder, Person& person) {
    return readPhoto(line, folder).and_then([&](std::string photo) -> Status {
        if (photo.empty()) return failure("it is empty");
        person.photo = std::move(photo);
        return {};
    });
}

}  // namespace

Result<ImportedContacts> importVCards(const std::filesystem::path& file, const Progress& progress) {
    Result<std::string> content = readFile(file, progress);
    if (!content) return failure(content);
    ImportedContacts imported;
    std::string text = madeValid(*content);
    if (text != *content) {
        imported.warnings.push_back(file.string() + ": not all of it is UTF-8; the rest became U+FFFD");
    }
    Result<std::vector<Card>> cards = splitCards(text, file.string());
    if (!cards) return failure(cards);
    for (const Card& card : *cards) {
        reportGoingOn(progress);
        const std::vector<Line> lines = readLines(card.text);
        Person person = readPerson(lines);
        if (const Line* line = find(lines, "PHOTO")) {
            Status taken = takePhoto(*line, file.parent_path(), person);
            if (!taken) {
                imported.warnings.push_back(file.string() + ", line " + std::to_string(card.line) + ": " +
                                            person.displayName() + " goes without photo: " + taken.error().message);
            }
        }
        imported.persons.push_back(std::move(person));
    }
    return imported;
}

}  // namespace maker

#include "simulator/maker/contacts/vcard_import.h"

#include <libebook-contacts/libebook-contacts.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include "simulator/maker/contacts/photo_address.h"
#include "simulator/maker/contacts/vcard_lines.h"
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

// While it lives, keeps what GLib's users have to say from the terminal.
class QuietParser {
  public:
    QuietParser() : previous_(g_log_set_default_handler(keep, this)) {}
    ~QuietParser() { g_log_set_default_handler(previous_, nullptr); }
    QuietParser(const QuietParser&) = delete;
    QuietParser& operator=(const QuietParser&) = delete;

    // What has been said since the last call.
    std::vector<std::string> take() { return std::exchange(said_, {}); }

  private:
    static void keep(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* message, gpointer self) {
        // It goes on to quote the rest of the text.
        const std::string said = message != nullptr ? message : "";
        static_cast<QuietParser*>(self)->said_.push_back(said.substr(0, said.find('\n')));
    }

    GLogFunc previous_;
    std::vector<std::string> said_;
};

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

Result<std::string> readPhoto(const Line& line, const PhotoFolders& folders) {
    std::string value = line.whole();
    if (line.encoded) return value;
    return readPhotoAddress(value, folders);
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

Status takePhoto(const Line& line, const PhotoFolders& folders, Person& person) {
    return readPhoto(line, folders).and_then([&](std::string photo) -> Status {
        if (photo.empty()) return failure("it is empty");
        person.photo = std::move(photo);
        return {};
    });
}

// vCard 4.0 has KIND for it, address books of computers wrote the other before.
bool isGroup(const std::vector<Line>& lines) {
    return std::any_of(lines.begin(), lines.end(), [](const Line& line) {
        return (line.name == "KIND" || line.name == "X-ADDRESSBOOKSERVER-KIND") && upper(line.whole()) == "GROUP";
    });
}

}  // namespace

Status importVCards(const Text& text, const ImportOptions& options, ImportedContacts& imported,
                    const Progress& progress) {
    const Result<std::vector<VCard>> cards = splitVCards(text, options.charset, imported.findings);
    if (!cards) return failure(cards);
    const PhotoFolders folders{std::filesystem::path(text.file).parent_path(), options.photos};
    QuietParser parser;
    for (const VCard& card : *cards) {
        reportGoingOn(progress);
        const auto report = [&](FindingKind kind, const std::string& what) {
            imported.findings.push_back({kind, text.file, card.line, what});
        };
        const std::vector<Line> lines = readLines(card.text);
        for (const std::string& said : parser.take())
            report(FindingKind::skipped, "a line of this vCard is left out: " + said);
        Person person = readPerson(lines);
        if (isGroup(lines)) {
            report(FindingKind::skipped, "this is a group, not a contact, and is left out");
            continue;
        }
        if (const Line* line = find(lines, "PHOTO")) {
            Status taken = takePhoto(*line, folders, person);
            if (!taken)
                report(FindingKind::photo, person.displayName() + " goes without photo: " + taken.error().message);
        }
        imported.persons.push_back({std::move(person), text.file, card.line});
    }
    return {};
}

}  // namespace maker

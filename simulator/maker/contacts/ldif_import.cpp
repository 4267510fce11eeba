#include "simulator/maker/contacts/ldif_import.h"

#include <glib.h>
#include <ldap.h>
#include <ldif.h>

#include <algorithm>
#include <map>

#include "simulator/maker/contacts/photo_address.h"
#include "simulator/maker/text/charset.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

std::string lower(std::string_view text) {
    phone::GText result(g_ascii_strdown(text.data(), static_cast<gssize>(text.size())));
    return result.get();
}

// An attribute's line, unfolded.
struct Line {
    std::string text;
    int number = 0;
};

// What is parted by empty lines; comments are left out.
std::vector<std::vector<Line>> entriesOf(const std::string& text) {
    std::vector<std::vector<Line>> entries(1);
    bool comment = false;
    for (const TextLine& line : linesOf(text)) {
        const bool folded = !line.bytes.empty() && line.bytes[0] == ' ';
        if (!folded) comment = !line.bytes.empty() && line.bytes[0] == '#';
        if (comment) continue;
        if (line.bytes.empty()) {
            if (!entries.back().empty()) entries.emplace_back();
        } else if (folded && !entries.back().empty()) {
            entries.back().back().text += line.bytes.substr(1);
        } else {
            entries.back().push_back({std::string(line.bytes), line.number});
        }
    }
    if (entries.back().empty()) entries.pop_back();
    return entries;
}

struct Attribute {
    std::string name;  // small letters, without options such as ";lang-ja"
    std::string value;
    bool isAddress = false;  // what the value is the address of, is the value
    int line = 0;
};

// The library speaks to the terminal unless another place is named; what is wrong with a line, its result says.
void silence() {
    constexpr BER_LOG_PRINT_FN nothing = [](const char* /*text*/) {};
    ber_set_option(nullptr, LBER_OPT_LOG_PRINT_FN, reinterpret_cast<const void*>(nothing));
}

Result<Attribute> attributeOf(Line line, const std::string& file) {
    Attribute attribute;
    attribute.line = line.number;
    // The library would open whatever a line refers to.
    const std::size_t colon = line.text.find(':');
    attribute.isAddress = colon != std::string::npos && line.text.substr(colon, 2) == ":<";
    if (attribute.isAddress) line.text.erase(colon + 1, 1);
    berval type{}, value{};
    int mustFree = 0;
    const int code = ldif_parse_line2(line.text.data(), &type, &value, &mustFree);
    if (code != 0) return failure(placeOf(file, line.number) + ": is not LDIF: \"" + line.text.substr(0, 60) + "\"");
    attribute.name = lower(std::string_view(type.bv_val, type.bv_len));
    attribute.name.resize(std::min(attribute.name.find(';'), attribute.name.size()));
    if (value.bv_val != nullptr) attribute.value.assign(value.bv_val, value.bv_len);
    if (mustFree != 0) ber_memfree(value.bv_val);
    return attribute;
}

Result<std::vector<Attribute>> attributesOf(const std::vector<Line>& entry, const std::string& file) {
    std::vector<Attribute> attributes;
    for (const Line& line : entry) {
        Result<Attribute> attribute = attributeOf(line, file);
        if (!attribute) return failure(attribute);
        attributes.push_back(std::move(*attribute));
    }
    return attributes;
}

const Attribute* find(const std::vector<Attribute>& attributes, std::string_view name) {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const Attribute& attribute) { return attribute.name == name; });
    return found == attributes.end() ? nullptr : &*found;
}

std::optional<std::string> text(const std::vector<Attribute>& attributes, std::string_view name) {
    const Attribute* attribute = find(attributes, name);
    if (attribute == nullptr || attribute->value.empty()) return std::nullopt;
    return attribute->value;
}

const std::map<std::string, const char*>& phoneLabels() {
    static const std::map<std::string, const char*> labels = {
        {"telephonenumber", "_$!<Work>!$_"}, {"homephone", "_$!<Home>!$_"},
        {"mobile", "_$!<Mobile>!$_"},        {"cellphone", "_$!<Mobile>!$_"},
        {"pager", "_$!<Pager>!$_"},          {"facsimiletelephonenumber", "_$!<WorkFAX>!$_"},
        {"fax", "_$!<WorkFAX>!$_"}};
    return labels;
}

// Everything but the photo.
Person personOf(const std::vector<Attribute>& attributes) {
    Person person;
    person.first = text(attributes, "givenname");
    person.last = text(attributes, "sn");
    person.nickname = text(attributes, "mozillanickname");
    person.organization = text(attributes, "o");
    const std::optional<std::string> whole = text(attributes, "cn");
    if (!person.first && !person.last && whole != person.organization) person.first = whole;
    for (const Attribute& attribute : attributes) {
        if (attribute.value.empty()) continue;
        const auto label = phoneLabels().find(attribute.name);
        if (label != phoneLabels().end()) person.phones.push_back({attribute.value, label->second});
        if (attribute.name == "mail" || attribute.name == "mozillasecondemail")
            person.emails.push_back({attribute.value, {}});
    }
    return person;
}

// Why an entry is no contact; empty when it is one.
std::string otherwise(const std::vector<Attribute>& attributes) {
    for (const Attribute& attribute : attributes) {
        const std::string value = lower(attribute.value);
        if (attribute.name == "changetype" && value != "add") return "this entry changes another";
        if (attribute.name == "objectclass" && (value == "groupofnames" || value == "groupofuniquenames"))
            return "this entry is a group, not a contact";
        if (attribute.name == "objectclass" && (value == "organizationalunit" || value == "dcobject"))
            return "this entry is a folder, not a contact";
    }
    return {};
}

void takePhoto(const std::vector<Attribute>& attributes, const PhotoFolders& folders, ImportedPerson& person,
               Findings& findings) {
    const Attribute* photo = find(attributes, "jpegphoto");
    if (photo == nullptr) return;
    Result<std::string> bytes =
        photo->isAddress ? readPhotoAddress(photo->value, folders) : Result<std::string>(photo->value);
    if (bytes && !bytes->empty()) {
        person.person.photo = std::move(*bytes);
        return;
    }
    findings.push_back(
        {FindingKind::photo, person.file, photo->line,
         person.person.displayName() + " goes without photo: " + (bytes ? "it is empty" : bytes.error().message)});
}

// What base64 wrapped is of no known character set, either.
void makeTextsUtf8(std::vector<Attribute>& attributes, const std::string& file, const std::string& charset,
                   Findings& findings) {
    for (Attribute& attribute : attributes) {
        if (attribute.name == "jpegphoto") continue;
        attribute.value = madeUtf8(attribute.value, {{}, charset}, file, attribute.line, findings);
    }
}

}  // namespace

Status importLdif(const Text& text, const ImportOptions& options, ImportedContacts& imported) {
    silence();
    const PhotoFolders folders{std::filesystem::path(text.file).parent_path(), options.photos};
    for (const std::vector<Line>& entry : entriesOf(text.bytes)) {
        Result<std::vector<Attribute>> attributes = attributesOf(entry, text.file);
        if (!attributes) return failure(attributes);
        const int line = entry.front().number;
        if (attributes->front().name == "version" && attributes->size() == 1) continue;
        if (const std::string reason = otherwise(*attributes); !reason.empty()) {
            imported.findings.push_back({FindingKind::skipped, text.file, line, reason + ", and is left out"});
            continue;
        }
        makeTextsUtf8(*attributes, text.file, options.charset, imported.findings);
        ImportedPerson person{personOf(*attributes), text.file, line};
        takePhoto(*attributes, folders, person, imported.findings);
        imported.persons.push_back(std::move(person));
    }
    return {};
}

}  // namespace maker

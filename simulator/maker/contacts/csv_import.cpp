#include "simulator/maker/contacts/csv_import.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>

#include "simulator/maker/contacts/photo_address.h"

namespace maker {
namespace {

enum class Field { first, last, middle, prefix, suffix, nickname, organization, whole, phone, email, label, photo };

struct Column {
    Field field;
    std::string label;  // of a number or an address, as the phone stores it; or which number a label belongs to
};

struct Title {
    const char* name;  // as columnName() makes it
    Field field;
    const char* label;
};

constexpr const char* kHome = "_$!<Home>!$_";
constexpr const char* kWork = "_$!<Work>!$_";
constexpr const char* kMobile = "_$!<Mobile>!$_";
constexpr const char* kMain = "_$!<Main>!$_";
constexpr const char* kOther = "_$!<Other>!$_";
constexpr const char* kPager = "_$!<Pager>!$_";

// As the programs title them in English, German, French and Spanish.
constexpr Title kTitles[] = {
    {"firstname", Field::first, ""},
    {"givenname", Field::first, ""},
    {"first", Field::first, ""},
    {"vorname", Field::first, ""},
    {"prénom", Field::first, ""},
    {"nombre", Field::first, ""},
    {"lastname", Field::last, ""},
    {"familyname", Field::last, ""},
    {"surname", Field::last, ""},
    {"last", Field::last, ""},
    {"nachname", Field::last, ""},
    {"nom", Field::last, ""},
    {"apellidos", Field::last, ""},
    {"middlename", Field::middle, ""},
    {"additionalname", Field::middle, ""},
    {"middle", Field::middle, ""},
    {"weiterevornamen", Field::middle, ""},
    {"deuxièmeprénom", Field::middle, ""},
    {"segundonombre", Field::middle, ""},
    {"nameprefix", Field::prefix, ""},
    {"title", Field::prefix, ""},
    {"anrede", Field::prefix, ""},
    {"titre", Field::prefix, ""},
    {"namesuffix", Field::suffix, ""},
    {"suffix", Field::suffix, ""},
    {"nickname", Field::nickname, ""},
    {"spitzname", Field::nickname, ""},
    {"organization1name", Field::organization, ""},
    {"organizationname", Field::organization, ""},
    {"organization", Field::organization, ""},
    {"company", Field::organization, ""},
    {"firma", Field::organization, ""},
    {"société", Field::organization, ""},
    {"organización", Field::organization, ""},
    {"compañía", Field::organization, ""},
    {"name", Field::whole, ""},
    {"fullname", Field::whole, ""},
    {"displayname", Field::whole, ""},
    {"contactname", Field::whole, ""},
    {"photo", Field::photo, ""},
    {"phone", Field::phone, ""},
    {"phonenumber", Field::phone, ""},
    {"telephone", Field::phone, ""},
    {"telefon", Field::phone, ""},
    {"number", Field::phone, ""},
    {"mobile", Field::phone, kMobile},
    {"mobilephone", Field::phone, kMobile},
    {"mobilenumber", Field::phone, kMobile},
    {"mobiltelefon", Field::phone, kMobile},
    {"mobiltelefon2", Field::phone, kMobile},
    {"télmobile", Field::phone, kMobile},
    {"teléfonomóvil", Field::phone, kMobile},
    {"home", Field::phone, kHome},
    {"homephone", Field::phone, kHome},
    {"homephone2", Field::phone, kHome},
    {"telefonprivat", Field::phone, kHome},
    {"telefonprivat2", Field::phone, kHome},
    {"téléphonedomicile", Field::phone, kHome},
    {"particular", Field::phone, kHome},
    {"work", Field::phone, kWork},
    {"workphone", Field::phone, kWork},
    {"businessphone", Field::phone, kWork},
    {"businessphone2", Field::phone, kWork},
    {"telefongeschäftlich", Field::phone, kWork},
    {"telefongeschäftlich2", Field::phone, kWork},
    {"téléphonebureau", Field::phone, kWork},
    {"teléfonodeltrabajo", Field::phone, kWork},
    {"primaryphone", Field::phone, kMain},
    {"companymainphone", Field::phone, kMain},
    {"haupttelefon", Field::phone, kMain},
    {"otherphone", Field::phone, kOther},
    {"weiterestelefon", Field::phone, kOther},
    {"pager", Field::phone, kPager},
    {"pagernumber", Field::phone, kPager},
    {"homefax", Field::phone, "_$!<HomeFAX>!$_"},
    {"faxprivat", Field::phone, "_$!<HomeFAX>!$_"},
    {"businessfax", Field::phone, "_$!<WorkFAX>!$_"},
    {"faxgeschäftlich", Field::phone, "_$!<WorkFAX>!$_"},
    {"otherfax", Field::phone, "_$!<OtherFAX>!$_"},
    {"fax", Field::phone, "_$!<OtherFAX>!$_"},
    {"faxnumber", Field::phone, "_$!<OtherFAX>!$_"},
    {"email", Field::email, ""},
    {"emailaddress", Field::email, ""},
    {"email2address", Field::email, ""},
    {"email3address", Field::email, ""},
    {"emailadresse", Field::email, ""},
    {"email2adresse", Field::email, ""},
    {"email3adresse", Field::email, ""},
    {"adressedemessagerie", Field::email, ""},
    {"direccióndecorreoelectrónico", Field::email, ""},
    {"primaryemail", Field::email, ""},
    {"secondaryemail", Field::email, ""},
};

// Labels that the phone has words of its own for, by Google's.
const std::map<std::string, const char*>& labelWords() {
    static const std::map<std::string, const char*> words = {{"home", kHome},
                                                             {"work", kWork},
                                                             {"mobile", kMobile},
                                                             {"main", kMain},
                                                             {"other", kOther},
                                                             {"homefax", "_$!<HomeFAX>!$_"},
                                                             {"pager", kPager},
                                                             {"workfax", "_$!<WorkFAX>!$_"},
                                                             {"otherfax", "_$!<OtherFAX>!$_"}};
    return words;
}

// Google's "Phone 2 - Value", "E-mail 1 - Type".
std::optional<Column> numberedColumn(const std::string& name) {
    for (const auto& [kind, field] : {std::pair("phone", Field::phone), std::pair("email", Field::email)}) {
        const std::size_t length = std::string_view(kind).size();
        if (name.rfind(kind, 0) != 0) continue;
        const std::size_t digits = name.find_first_not_of("0123456789", length);
        if (digits == std::string::npos || digits == length) continue;
        const std::string what = name.substr(digits);
        if (what == "value") return Column{field, name.substr(0, digits)};
        if (what == "type" || what == "label") return Column{Field::label, name.substr(0, digits)};
    }
    return std::nullopt;
}

std::optional<Column> columnOf(const std::string& title) {
    const std::string name = columnName(title);
    const auto known = std::find_if(std::begin(kTitles), std::end(kTitles),
                                    [&](const Title& candidate) { return name == candidate.name; });
    if (known != std::end(kTitles)) return Column{known->field, known->label};
    return numberedColumn(name);
}

std::string labelOf(std::string written) {
    // Google marks the one that is preferred.
    if (written.rfind("* ", 0) == 0) written.erase(0, 2);
    const auto known = labelWords().find(columnName(written));
    return known == labelWords().end() ? written : known->second;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\n") - first + 1);
}

void addValues(const std::string& field, const std::string& label, std::vector<LabelledValue>& values) {
    constexpr std::string_view separator = ":::";
    for (std::size_t start = 0; start <= field.size();) {
        const std::size_t end = std::min(field.find(separator, start), field.size());
        std::string value = trimmed(field.substr(start, end - start));
        if (!value.empty()) values.push_back({std::move(value), label});
        start = end + separator.size();
    }
}

// One row, by its columns.
class RowReader {
  public:
    RowReader(const std::vector<std::optional<Column>>& columns, const CsvRow& row) : columns_(columns), row_(row) {}

    Person person() const {
        Person person;
        const std::pair<Field, std::optional<std::string> Person::*> names[] = {
            {Field::first, &Person::first},
            {Field::last, &Person::last},
            {Field::middle, &Person::middle},
            {Field::prefix, &Person::prefix},
            {Field::suffix, &Person::suffix},
            {Field::nickname, &Person::nickname},
            {Field::organization, &Person::organization}};
        for (const auto& [field, member] : names) person.*member = text(field);
        const bool named = person.first || person.last || person.middle;
        const std::optional<std::string> whole = text(Field::whole);
        if (!named && whole && whole != person.organization) person.first = whole;
        for (std::size_t i = 0; i < size(); ++i) {
            if (isOf(i, Field::phone)) addValues(row_.fields[i], labelFor(i), person.phones);
            if (isOf(i, Field::email)) addValues(row_.fields[i], labelFor(i), person.emails);
        }
        return person;
    }

    std::optional<std::string> text(Field field) const {
        for (std::size_t i = 0; i < size(); ++i) {
            if (!isOf(i, field)) continue;
            std::string value = trimmed(row_.fields[i]);
            if (!value.empty()) return value;
        }
        return std::nullopt;
    }

  private:
    std::size_t size() const { return std::min(columns_.size(), row_.fields.size()); }

    bool isOf(std::size_t index, Field field) const { return columns_[index] && columns_[index]->field == field; }

    // Its own, or what stands in the column beside it.
    std::string labelFor(std::size_t index) const {
        const std::string& label = columns_[index]->label;
        for (std::size_t i = 0; i < size(); ++i) {
            if (isOf(i, Field::label) && columns_[i]->label == label) return labelOf(trimmed(row_.fields[i]));
        }
        return numberedColumn(label + "value") ? std::string() : label;
    }

    const std::vector<std::optional<Column>>& columns_;
    const CsvRow& row_;
};

std::vector<std::optional<Column>> columnsOf(const CsvRow& header) {
    std::vector<std::optional<Column>> columns;
    for (const std::string& title : header.fields) columns.push_back(columnOf(title));
    return columns;
}

bool isEmpty(const Person& person) {
    return person.displayName().empty() && !person.middle && !person.prefix && !person.suffix;
}

}  // namespace

bool isContactsHeader(const CsvRow& row) {
    const auto columns = columnsOf(row);
    const auto has = [&](auto... fields) {
        return std::any_of(columns.begin(), columns.end(), [&](const std::optional<Column>& column) {
            return column && ((column->field == fields) || ...);
        });
    };
    return has(Field::first, Field::last, Field::whole, Field::nickname, Field::organization) ||
           (has(Field::phone) && has(Field::email));
}

void importCsv(const std::string& file, const std::vector<CsvRow>& rows, const ImportOptions& options,
               ImportedContacts& imported) {
    const auto columns = columnsOf(rows.front());
    const PhotoFolders folders{std::filesystem::path(file).parent_path(), options.photos};
    for (auto row = rows.begin() + 1; row != rows.end(); ++row) {
        const RowReader reader(columns, *row);
        Person person = reader.person();
        if (isEmpty(person)) {
            imported.findings.push_back(
                {FindingKind::skipped, file, row->line, "this row has neither name nor number and is left out"});
            continue;
        }
        if (const std::optional<std::string> address = reader.text(Field::photo)) {
            Result<std::string> photo = readPhotoAddress(*address, folders);
            if (photo) {
                person.photo = std::move(*photo);
            } else {
                imported.findings.push_back({FindingKind::photo, file, row->line,
                                             person.displayName() + " goes without photo: " + photo.error().message});
            }
        }
        imported.persons.push_back({std::move(person), file, row->line});
    }
}

}  // namespace maker

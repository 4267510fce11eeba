#include "simulator/maker/contacts/generated_book.h"

#include <array>
#include <cstdio>
#include <random>
#include <vector>

#include "simulator/maker/contacts/photo.h"

namespace maker {
namespace {

// Names that belong together, and how numbers are spelt where they come from: '#' stands for a digit of the contact's
// own running number, so that no number occurs twice.
struct Locale {
    std::vector<const char*> given, family;
    const char* number;
};

const std::vector<Locale>& locales() {
    static const std::vector<Locale> all = {
        {{"James", "Mary", "Olivia", "Noah", "Emma", "Liam", "Ava", "Lucas", "Grace", "Ethan"},
         {"Smith", "Johnson", "Garcia", "Brown", "O'Connor", "Miller", "Davis", "Nguyen", "Taylor", "Moore"},
         "(2##) 555-####"},
        {{"Anna", "Jürgen", "Lukas", "Käthe", "Björn", "Sofie", "Jörg", "Ursula"},
         {"Müller", "Schäfer", "Weiß", "Groß-Lüders", "von Ahn", "Köhler", "Krüger"},
         "+49 151 50######"},
        {{"Zoë", "Chloé", "François", "Noémie", "Étienne", "Aurélie"},
         {"Lefèvre", "Dubois", "Gauthier", "Çelik", "D'Aubigné", "Bélanger"},
         "+33 6 39 ######"},
        {{"Łukasz", "Agnieszka", "Zdeněk", "Šárka", "Đorđe", "Ștefan"},
         {"Wójcik", "Żółkiewski", "Dvořák", "Horváth", "Nikolić", "Țurcanu"},
         "+48 510######"},
        {{"Αλέξανδρος", "Ελένη", "Γιώργος", "Ζωή"}, {"Παπαδόπουλος", "Νικολάου", "Ωραιοπούλου"}, "+30 694 0######"},
        {{"Дмитрий", "Ольга", "Сергій", "Юлия", "Ёлкин"},
         {"Иванов", "Кузнецова", "Шевченко", "Щукин"},
         "+7 916 0######"},
        {{"משה", "נועה", "אברהם", "תמר"}, {"כהן", "לוי", "מזרחי", "בן־דוד"}, "+972 54 0######"},
        {{"محمد", "فاطمة", "ليلى", "عمر"}, {"الأحمد", "حسن", "المصري", "خليل"}, "+20 10 00######"},
        {{"प्रिया", "राहुल", "अनिल", "सीता"}, {"शर्मा", "गुप्ता", "सिंह", "पटेल"}, "+91 98 70######"},
        {{"สมชาย", "มาลี", "นิรันดร์"}, {"ใจดี", "ศรีสุข", "วงศ์ไทย"}, "+66 81 0######"},
        {{"伟", "丽华", "小明", "静"}, {"王", "李", "欧阳", "张"}, "+86 138 00######"},
        {{"太郎", "花子", "さくら", "健"}, {"山田", "佐藤", "鈴木", "髙橋"}, "+81 90 12######"},
        {{"민준", "서연", "지우"}, {"김", "이", "박", "남궁"}, "+82 10 12######"},
    };
    return all;
}

std::string fillNumber(const char* pattern, int running) {
    std::string number = pattern;
    for (auto digit = number.rbegin(); digit != number.rend(); ++digit) {
        if (*digit != '#') continue;
        *digit = static_cast<char>('0' + running % 10);
        running /= 10;
    }
    return number;
}

constexpr std::array<unsigned, 12> kThumbnailColours = {0xB23A48, 0x2E6F95, 0x386641, 0x7B2CBF, 0xC77D2E, 0x5F0F40,
                                                        0x1B998B, 0x3D405B, 0x9A031E, 0x0F4C5C, 0x6C757D, 0xE07A5F};

Person makePerson(int index, std::mt19937& random) {
    const std::vector<Locale>& all = locales();
    // Names like the first ones are the most, for initials to be looked at.
    const Locale& locale = all[index % 3 == 0 ? 0 : random() % all.size()];
    Person person;
    person.first = locale.given[random() % locale.given.size()];
    person.last = locale.family[random() % locale.family.size()];
    unsigned shape = random() % 40;
    if (shape == 0) person.last.reset();
    if (shape == 1) person.first.reset();
    if (shape == 2) person.middle = "J.";
    if (shape == 3) {
        person.organization = *person.last + " & Co.";
        person.first.reset();
        person.last.reset();
    }
    person.phones.push_back({fillNumber(locale.number, index), "_$!<Mobile>!$_"});
    if (index % 4 == 1) person.phones.push_back({fillNumber("+44 20 79######", index), "_$!<Home>!$_"});
    if (index % 9 == 1) person.phones.push_back({fillNumber("+1 650 2######", index), "_$!<Work>!$_"});
    if (index % 2 == 0) person.emails.push_back({"contact" + std::to_string(index) + "@example.com", "_$!<Home>!$_"});
    // Values without label or text, as phones have them.
    if (index % 8 == 0) person.emails.push_back({"unlabelled" + std::to_string(index) + "@example.com", ""});
    if (index % 5 == 0) person.city = "Springfield";
    if (index % 50 == 48 || index % 50 == 49) person.linkedAs = "generated" + std::to_string(index / 50);
    return person;
}

}  // namespace

Result<long> addGeneratedContacts(AddressBookBuilder& builder, int count, std::uint32_t seed, double modified,
                                  const Progress& progress) {
    std::vector<std::string> thumbnails;
    thumbnails.reserve(kThumbnailColours.size());
    for (unsigned colour : kThumbnailColours) thumbnails.push_back(plainThumbnail(colour));
    std::mt19937 random(seed);
    long pictures = 0;
    for (int index = 0; index < count; ++index) {
        Person person = makePerson(index, random);
        person.created = person.modified = modified;
        Result<int> contact = builder.addPerson(person);
        if (!contact) return failure(contact);
        if (index % 3 == 1) {
            Status stored = builder.setThumbnail(*contact, thumbnails[random() % thumbnails.size()]);
            if (!stored) return failure(stored);
            ++pictures;
        }
        if (progress) progress("contacts", index + 1, count);
    }
    return pictures;
}

}  // namespace maker

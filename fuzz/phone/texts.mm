// Texts of any code units where a phone number, a link, an e-mail address or a colour is expected.

#include <sqlite3.h>

#include "fuzz/phone/utf16.h"
#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/zelkacb.h"

namespace {

constexpr const char* kAddressBook = "/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb";

void checkPlainNumber(NSString* text, const std::u16string& units) {
    std::u16string plain = units;
    std::erase_if(plain, [](char16_t c) { return c == u' ' || c == u'(' || c == u')' || c == u'-'; });
    if (fuzz::unitsOf([Utils getPlainPhoneNumber:text]) != plain) fuzz::fail("plain number of " + fuzz::spelled(units));
}

void checkLink(NSString* text, const std::u16string& units) {
    constexpr std::size_t kSchemeLength = 6;
    const std::size_t query = units.find(u'?');
    const bool whole = units.find(u"tel://") == units.npos || query == units.npos;
    NSString* number = nil;
    NSString* raised = fuzz::raisedBy([&] { number = [Utils getPhoneNumberFromURL:text]; });
    if (!whole && query < kSchemeLength) {
        if (![raised isEqualToString:NSRangeException])
            fuzz::fail("no range error for the link " + fuzz::spelled(units));
        return;
    }
    if (raised != nil) fuzz::fail(std::string([raised UTF8String]) + " for the link " + fuzz::spelled(units));
    if (fuzz::unitsOf(number) != (whole ? units : units.substr(kSchemeLength, query - kSchemeLength)))
        fuzz::fail("number of the link " + fuzz::spelled(units));
}

// What the statement finds that is made of the address as it stands; -1 when it is none or finds nothing.
int contactOfStatement(NSString* address) {
    NSString* query = [NSString stringWithFormat:@"Select record_id from ABMULTIVALUE where value like'%@'", address];
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    int contact = -1;
    if (sqlite3_open(kAddressBook, &database) == SQLITE_OK &&
        sqlite3_prepare_v2(database, [query UTF8String], -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) != SQLITE_DONE)
        contact = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return contact;
}

void checkContact(NSString* text, const std::u16string& units) {
    const ABRecordID found = [Utils getContactID:text];
    const bool isAddress = units.find(u'@') != units.npos;
    if (isAddress && found != contactOfStatement(text)) fuzz::fail("contact of the address " + fuzz::spelled(units));
    if (!isAddress && (found < 0 || found > 1)) fuzz::fail("contact of the number " + fuzz::spelled(units));
    [Utils removeContactIDFromCache:found];
}

double component(const std::u16string& digits) {
    unsigned value = 0;
    for (const char16_t c : digits) {
        if (c > 0x7F || !isxdigit(c)) break;
        value = value * 16 + static_cast<unsigned>(c <= u'9' ? c - u'0' : (c | 0x20) - u'a' + 10);
    }
    return value / 255.0;
}

void checkColor(NSString* text, const std::u16string& units) {
    UIColor* color = nil;
    NSString* raised = fuzz::raisedBy(
        [&] { color = [(Class<ZelkaCBColors>)[UIColor class] ZelkaCBColorWithHexaCode:text alpha:0.5]; });
    if (units.size() < 7) {
        if (![raised isEqualToString:NSRangeException])
            fuzz::fail("no range error for the colour " + fuzz::spelled(units));
        return;
    }
    if (raised != nil) fuzz::fail(std::string([raised UTF8String]) + " for the colour " + fuzz::spelled(units));
    CGFloat red = 0, green = 0, blue = 0, alpha = 0;
    [color getRed:&red green:&green blue:&blue alpha:&alpha];
    if (red != component(units.substr(1, 2)) || green != component(units.substr(3, 2)) ||
        blue != component(units.substr(5, 2)) || alpha != 0.5)
        fuzz::fail("components of the colour " + fuzz::spelled(units));
}

bool makeAddressBook() {
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(fuzz::root().path()).value();
    maker::Person person;
    person.first = "Ann";
    person.phones = {{"+1 555 010 0199", ""}};
    person.emails = {{"ann@example.com", ""}};
    (void)book.addPerson(person).value();
    return book.finish().has_value();
}

}  // namespace

void fuzz::texts(Bytes input) {
    static const bool made = makeAddressBook();
    if (!made) fail("no address book");
    const std::u16string units = unitsOf(input);
    NSString* text = string(units);
    checkPlainNumber(text, units);
    checkLink(text, units);
    checkColor(text, units);
    checkContact(text, units);
    [Utils getFormattedPhoneNumber:text];
}

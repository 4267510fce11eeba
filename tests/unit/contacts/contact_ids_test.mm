#include "tests/unit/contacts/contacts_test.h"

namespace {

using test::kAddressBook;

class ContactIDs : public test::ContactsTest {
  protected:
    int addReachable(std::optional<std::string> phone, std::optional<std::string> email) {
        maker::Person person;
        person.first = "Anna";
        if (phone) person.phones.push_back({*phone, ""});
        if (email) person.emails.push_back({*email, ""});
        return add(person);
    }
    void remove(int contact) {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        EXPECT_EQ(phone::problemOf(book.removePerson(contact)), "");
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
};

TEST_F(ContactIDs, OfPhoneNumbersAreThePersonsWhoMatchThem) {
    const int contact = addReachable("+1 415 555 2671", std::nullopt);
    addReachable("+1 212 555 0199", std::nullopt);
    boot();
    EXPECT_EQ([Utils getContactID:@"(415) 555-2671"], contact);
    EXPECT_EQ([Utils getContactID:@"+14155552671"], contact);
}

TEST_F(ContactIDs, OfUnknownNumbersAreZeroAndNotRemembered) {
    addReachable("+1 212 555 0199", std::nullopt);
    boot();
    EXPECT_EQ([Utils getContactID:@"+14155552671"], 0);
    const int contact = addReachable("+1 415 555 2671", std::nullopt);
    EXPECT_EQ([Utils getContactID:@"+14155552671"], contact);
}

TEST_F(ContactIDs, OfAnyOtherPhoneTextAreZero) {
    addReachable("+1 212 555 0199", std::nullopt);
    boot();
    const unichar half[] = {0xD83D, '1'};
    NSMutableString* longText = [NSMutableString string];
    for (int i = 0; i < 10000; ++i) [longText appendString:@"7"];
    for (NSString* text in @[
             @"", @" ", @"*#06#", @"Anna", @"☎", @"'; DROP TABLE ABPERSON; --", @"%", @"\n", longText,
             [NSString stringWithCharacters:half length:2]
         ])
        EXPECT_EQ([Utils getContactID:text], 0) << [[text description] UTF8String];
}

TEST_F(ContactIDs, OfEMailAddressesAreThoseWhoseWholeValueIsThem) {
    addReachable("+1 212 555 0199", "bob@example.com");
    const int contact = addReachable(std::nullopt, "anna@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
    EXPECT_EQ([Utils getContactID:@"ANNA@Example.Com"], contact);
    EXPECT_EQ([Utils getContactID:@"nna@example.com"], -1);
    EXPECT_EQ([Utils getContactID:@"anna@example.co"], -1);
    EXPECT_EQ([Utils getContactID:@"b@example.com"], -1);
}

TEST_F(ContactIDs, OfATextWithAnAtSignAnywhereAreLookedUpAsEMail) {
    const int contact = addReachable("+1 415 555 2671", "odd@");
    boot();
    EXPECT_EQ([Utils getContactID:@"+14155552671@"], -1);
    EXPECT_EQ([Utils getContactID:@"odd@"], contact);
    EXPECT_EQ([Utils getContactID:@"@"], -1);
}

TEST_F(ContactIDs, OfAddressesWithWildcardsAreThoseThatTheseMatch) {
    addReachable("+1 212 555 0199", "bob@example.org");
    const int contact = addReachable(std::nullopt, "anna@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"%@example.com"], contact);
    EXPECT_EQ([Utils getContactID:@"ann_@example.com"], contact);
    EXPECT_EQ([Utils getContactID:@"_@example.com"], -1);
}

TEST_F(ContactIDs, OfUnknownAddressesAreMinusOneAndNotRemembered) {
    addReachable("+1 212 555 0199", "bob@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], -1);
    const int contact = addReachable(std::nullopt, "anna@example.com");
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
}

TEST_F(ContactIDs, OfAddressesWithAQuoteAreMinusOne) {
    addReachable(std::nullopt, "o'neil@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"o'neil@example.com"], -1);
    EXPECT_EQ([Utils getContactID:@"'@'"], -1);
    EXPECT_EQ([Utils getContactID:@"\"@"], -1);
}

TEST_F(ContactIDs, OfAddressesWhoseQuotesMakeAStatementAreWhateverItGives) {
    const int contact = addReachable(std::nullopt, "anna@example.com");
    boot();
    // The text is written into the statement as it is.
    EXPECT_EQ([Utils getContactID:@"@' or record_id > 0 and value like '%"], contact);
}

TEST_F(ContactIDs, OfAddressesWhoseQuotesMakeAStatementThatFailsAreZero) {
    addReachable(std::nullopt, "anna@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"@' or abs(-9223372036854775807-1) or '"], 0);
}

TEST_F(ContactIDs, OfAddressesThatAreNoUnicodeOrEndInsideAreMinusOne) {
    addReachable(std::nullopt, "anna@example.com");
    boot();
    const unichar half[] = {'@', 0xD83D};
    const unichar zero[] = {'@', 0, 'x'};
    EXPECT_EQ([Utils getContactID:[NSString stringWithCharacters:half length:2]], -1);
    EXPECT_EQ([Utils getContactID:[NSString stringWithCharacters:zero length:3]], -1);
    EXPECT_EQ([Utils getContactID:nil], -1);
}

TEST_F(ContactIDs, OfAddressesStepOneStatement) {
    addReachable(std::nullopt, "anna@example.com");
    boot();
    const int stepped = test::sqliteCalls().stepped;
    [Utils getContactID:@"anna@example.com"];
    EXPECT_EQ(test::sqliteCalls().stepped - stepped, 1);
    [Utils getContactID:@"anna@example.com"];
    EXPECT_EQ(test::sqliteCalls().stepped - stepped, 1);
}

TEST_F(ContactIDs, OfAddressesAreMinusOneWithoutADatabase) {
    boot();
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], -1);
    EXPECT_EQ(test::sqliteCalls().opened, 0);
    EXPECT_FALSE(root.exists(kAddressBook));
}

TEST_F(ContactIDs, OfAddressesAreMinusOneAtOnceWhenTheDatabaseCannotBeRead) {
    const int contact = addReachable(std::nullopt, "anna@example.com");
    replaceByGarbage(kAddressBook);
    boot();
    const double start = test::now();
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], -1);
    restore(kAddressBook);
    replaceByDirectory(kAddressBook);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], -1);
    EXPECT_LT(test::now() - start, 0.9);
    restore(kAddressBook);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
}

TEST_F(ContactIDs, StayWithTheContactUntilForgotten) {
    const int contact = addReachable("+1 415 555 2671", "anna@example.com");
    boot();
    EXPECT_EQ([Utils getContactID:@"+14155552671"], contact);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
    remove(contact);
    const int other = addReachable("+1 415 555 2671", "anna@example.com");
    EXPECT_EQ([Utils getContactID:@"+14155552671"], contact);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
    [Utils removeContactIDFromCache:contact];
    [Utils removeContactIDFromCache:contact];
    EXPECT_EQ([Utils getContactID:@"+14155552671"], other);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], other);
}

TEST_F(ContactIDs, OfNumbersAreZeroOnceTheSharedAddressBookIsGivenUp) {
    const int contact = addReachable("+1 415 555 2671", "anna@example.com");
    boot();
    EXPECT_NE([Utils getAddressBook], nullptr);
    EXPECT_EQ([Utils getAddressBook], [Utils getAddressBook]);
    EXPECT_EQ([Utils getContactID:@"+14155552671"], contact);
    [Utils clearImageCache];
    EXPECT_EQ([Utils getAddressBook], nullptr);
    EXPECT_EQ([Utils getContactID:@"+14155552671"], 0);
    EXPECT_EQ([Utils getContactID:@"anna@example.com"], contact);
}

TEST_F(ContactIDs, LeadToPersonRecords) {
    const int contact = addReachable("+1 415 555 2671", std::nullopt);
    boot();
    EXPECT_EQ(ABRecordGetRecordID([Utils getPersonRecordFromDB:contact]), contact);
    EXPECT_EQ([Utils getPersonRecordFromDB:0], nullptr);
    EXPECT_EQ([Utils getPersonRecordFromDB:-1], nullptr);
    EXPECT_EQ([Utils getPersonRecordFromDB:contact + 1], nullptr);
}

}  // namespace

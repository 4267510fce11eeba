#include "tests/unit/contacts/contacts_test.h"

#include <sanitizer/lsan_interface.h>
#include <sqlite3.h>

#include <filesystem>

namespace {

using test::kAddressBook;
using test::leftInPool;

constexpr const char* kReader = "+[ZelkaCBUtils getMonogramTextFromAB:currentReadCount:]";

class InitialsFromName : public test::ContactsTest {
  protected:
    InitialsFromName() { boot(); }
    static std::string of(const char* name) {
        NSString* text = [Utils monogramTextFromName:[NSString stringWithUTF8String:name]];
        return text == nil ? "(nil)" : [text UTF8String];
    }
};

TEST_F(InitialsFromName, AreFirstAndLastWordsOnly) {
    EXPECT_EQ(of("John Smith"), "JS");
    EXPECT_EQ(of("John Ronald Smith"), "JS");
    EXPECT_EQ(of("a b c d e"), "ae");
}

TEST_F(InitialsFromName, KeepTheirLetterCase) {
    EXPECT_EQ(of("jean-luc picard"), "jp");
    EXPECT_EQ(of("anna"), "a");
}

TEST_F(InitialsFromName, SplitAtWhateverIsNotAlphanumeric) {
    EXPECT_EQ(of("O'Neil"), "ON");
    EXPECT_EQ(of("R2 D2"), "RD");
    EXPECT_EQ(of("+1 555 0100"), "10");
    EXPECT_EQ(of("a\tb"), "ab");
    EXPECT_EQ(of("x/y_z"), "xz");
}

TEST_F(InitialsFromName, OfOneWordAreItsFirstCharacter) {
    EXPECT_EQ(of("Anna"), "A");
    EXPECT_EQ(of("7eleven"), "7");
    EXPECT_EQ(of("A"), "A");
    EXPECT_EQ(of("Anna "), "A");
}

TEST_F(InitialsFromName, OfOneWordBehindASeparatorAreOneSpace) {
    EXPECT_EQ(of("(Anna)"), " ");
    EXPECT_EQ(of(" Anna"), " ");
    EXPECT_EQ(of("-Anna"), " ");
    EXPECT_EQ(of("!!"), " ");
    EXPECT_EQ(of(" "), " ");
}

TEST_F(InitialsFromName, SkipDoubleQuotesAsIfTheyWereNotThere) {
    EXPECT_EQ(of("\"Bob\" Jones"), "BJ");
    EXPECT_EQ(of("\"Bob\""), "B");
    EXPECT_EQ(of("Bo\"b\"by"), "B");
    EXPECT_EQ(of("\" \""), " ");
}

TEST_F(InitialsFromName, OfQuotesAloneAreOneSpaceAsOfOtherPunctuation) {
    EXPECT_EQ(of("\""), " ");
    EXPECT_EQ(of("\"\"\""), " ");
}

TEST_F(InitialsFromName, AreNilForNil) { EXPECT_EQ([Utils monogramTextFromName:nil], nil); }

TEST_F(InitialsFromName, AreTheVeryTextForAnEmptyOne) {
    NSString* empty = [NSMutableString string];
    EXPECT_EQ([Utils monogramTextFromName:empty], empty);
}

TEST_F(InitialsFromName, KnowLettersMarksAndNumbersOfEveryScript) {
    EXPECT_EQ(of("Élodie Çelik"), "ÉÇ");
    EXPECT_EQ(of("Анна Петрова"), "АП");
    EXPECT_EQ(of("مريم حسن"), "مح");
    EXPECT_EQ(of("דוד כהן"), "דכ");
    EXPECT_EQ(of("山田太郎"), "山");
    EXPECT_EQ(of("山田 太郎"), "山太");
    EXPECT_EQ(of("김민준"), "김");
    EXPECT_EQ(of("٣ ٤"), "٣٤");
    // A combining acute accent (a mark) joins its letters and stays behind.
    EXPECT_EQ(of("Jose\xCC\x81 Ruiz"), "JR");
    EXPECT_EQ(of("\xCC\x81 x"), "\xCC\x81x");
}

// What the eye takes for one character may be several UTF-16 units, of which an initial is the first.
TEST_F(InitialsFromName, AreUtf16UnitsAndNotWhatTheEyeTakesForOne) {
    EXPECT_EQ(of("E\xCC\x81lodie"), "E");
    EXPECT_EQ(of("E\xCC\x81lodie C\xCC\xA7"
                 "elik"),
              "EC");
    EXPECT_EQ(of("\u0939\u093F\u0928 \u0915\u094D\u0937"), "\u0939\u0915");
    NSString* pair = [NSString stringWithUTF8String:"\U00020BB7"];
    ASSERT_EQ([pair length], 2u);
    NSString* one = [Utils monogramTextFromName:pair];
    ASSERT_EQ([one length], 1u);
    EXPECT_EQ([one characterAtIndex:0], [pair characterAtIndex:0]);
    NSString* two = [Utils monogramTextFromName:[NSString stringWithFormat:@"%@ %@", pair, pair]];
    ASSERT_EQ([two length], 2u);
    for (NSUInteger i : {0u, 1u}) EXPECT_EQ([two characterAtIndex:i], [pair characterAtIndex:0]);
}

TEST_F(InitialsFromName, TakeSymbolsForSeparators) {
    EXPECT_EQ(of("☎ Office"), " ");
    EXPECT_EQ(of("Anna ☎"), "A");
    EXPECT_EQ(of("Anna😀Bob"), "AB");
    EXPECT_EQ(of("😀"), " ");
    EXPECT_EQ(of("€uro"), " ");
}

TEST_F(InitialsFromName, SurviveHalvesOfSurrogatePairs) {
    const unichar high[] = {0xD83D};
    const unichar between[] = {'a', 0xDE00, 'b'};
    EXPECT_TRUE([[Utils monogramTextFromName:[NSString stringWithCharacters:high length:1]] isEqualToString:@" "]);
    EXPECT_TRUE([[Utils monogramTextFromName:[NSString stringWithCharacters:between length:3]] isEqualToString:@"ab"]);
}

TEST_F(InitialsFromName, OfTenThousandCharactersAreStillTwo) {
    std::string name;
    for (int i = 0; i < 5000; ++i) name += "x ";
    EXPECT_EQ(of((name + "z").c_str()), "xz");
    EXPECT_EQ(of(std::string(10000, 'q').c_str()), "q");
    EXPECT_EQ(of(std::string(10000, '!').c_str()), " ");
}

class InitialsFromDatabase : public test::ContactsTest {
  protected:
    static std::string of(int contact) {
        NSString* text = [Utils getMonogramTextFromAB:contact];
        EXPECT_TRUE(text == [Utils monogramTextFromAB:contact] ||
                    [text isEqualToString:[Utils monogramTextFromAB:contact]]);
        return text == nil ? "(nil)" : [text UTF8String];
    }
};

TEST_F(InitialsFromDatabase, CombineFirstAndLastName) {
    const int both = addNamed("John", "Smith");
    const int first = addNamed("anna", std::nullopt);
    const int last = addNamed(std::nullopt, "Petrova");
    const int firstAndEmpty = addNamed("Anna", "");
    const int emptyAndLast = addNamed("", "Petrova");
    const int twoWords = addNamed("John Ronald", "Smith");
    const int quoted = addNamed("\"Bob\"", "Jones");
    boot();
    EXPECT_EQ(of(both), "JS");
    EXPECT_EQ(of(first), "a");
    EXPECT_EQ(of(last), "P");
    EXPECT_EQ(of(firstAndEmpty), "A");
    EXPECT_EQ(of(emptyAndLast), "P");
    EXPECT_EQ(of(twoWords), "JS");
    EXPECT_EQ(of(quoted), "BJ");
}

TEST_F(InitialsFromDatabase, AreNilWithoutNames) {
    maker::Person company;
    company.organization = "Company";
    const int absent = add(company);
    const int empty = addNamed("", "");
    const int emptyAndAbsent = addNamed("", std::nullopt);
    const int absentAndEmpty = addNamed(std::nullopt, "");
    boot();
    EXPECT_EQ(of(absent), "(nil)");
    EXPECT_EQ(of(empty), "(nil)");
    EXPECT_EQ(of(emptyAndAbsent), "(nil)");
    EXPECT_EQ(of(absentAndEmpty), "(nil)");
}

TEST_F(InitialsFromDatabase, LogAContactThatIsNotThere) {
    addNamed("John", "Smith");
    boot();
    EXPECT_EQ([Utils getMonogramTextFromAB:-7], nil);
    EXPECT_EQ(loggedLines("], No contact info found in ABPERSON for '-7'."), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Error => " + std::string(kReader) + ", [Line "), std::string::npos);
}

TEST_F(InitialsFromDatabase, AreNilAtOnceWithoutADatabase) {
    boot();
    const double start = test::now();
    EXPECT_EQ([Utils getMonogramTextFromAB:1], nil);
    EXPECT_EQ([Utils getMonogramTextFromAB:1 currentReadCount:9], nil);
    EXPECT_LT(test::now() - start, 0.9);
    EXPECT_EQ(test::sqliteCalls().opened, 0);
    EXPECT_EQ(log().find(kReader), std::string::npos);
}

TEST_F(InitialsFromDatabase, AreNilWhenTheReadFails) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(root.host(kAddressBook).c_str(), &database), SQLITE_OK);
    // A number that is too large for its sign to change: an error, but only when the row is asked for.
    EXPECT_EQ(sqlite3_exec(database,
                           "CREATE VIEW ABPerson AS SELECT 7 AS ROWID, abs(-9223372036854775807 - 1) AS First, "
                           "'Smith' AS Last",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    boot();
    const double start = test::now();
    EXPECT_EQ([Utils getMonogramTextFromAB:7], nil);
    EXPECT_LT(test::now() - start, 0.9);
    EXPECT_EQ(log().find(kReader), std::string::npos);
}

TEST_F(InitialsFromDatabase, StepOneStatement) {
    const int contact = addNamed("John", "Smith");
    boot();
    const int stepped = test::sqliteCalls().stepped;
    EXPECT_EQ([[Utils getMonogramTextFromAB:contact] length], 2u);
    EXPECT_EQ(test::sqliteCalls().stepped - stepped, 1);
}

TEST_F(InitialsFromDatabase, WaitOnceASecondForADatabaseThatCannotBePrepared) {
    const int contact = addNamed("John", "Smith");
    replaceByGarbage(kAddressBook);
    boot();
    restoreWhenSlept(1.2, kAddressBook);
    EXPECT_EQ(of(contact), "JS");
    EXPECT_EQ(test::slept(), 2u);
    EXPECT_EQ(loggedLines("], Error while preparing statement: 'file is not a database'"), 2);
}

TEST_F(InitialsFromDatabase, WaitForADatabaseThatCannotBeOpened) {
    const int contact = addNamed("John", "Smith");
    replaceByDirectory(kAddressBook);
    boot();
    restoreWhenSlept(0.4, kAddressBook);
    const int opened = test::sqliteCalls().opened;
    const int closed = test::sqliteCalls().closed;
    __lsan_disable();  // a connection that failed to open is never closed
    NSString* text = [Utils getMonogramTextFromAB:contact];
    __lsan_enable();
    EXPECT_TRUE([text isEqualToString:@"JS"]);
    EXPECT_EQ(loggedLines("], Error while opening database connection: 'unable to open database file'"), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Error => " + std::string(kReader) + ", [Line "), std::string::npos);
    EXPECT_EQ(test::sqliteCalls().opened - opened, 2);
    EXPECT_EQ(test::sqliteCalls().closed - closed, 1);
}

TEST_F(InitialsFromDatabase, AreNilOnceTheDatabaseThatTheyWaitForIsGone) {
    const int contact = addNamed("John", "Smith");
    replaceByGarbage(kAddressBook);
    boot();
    test::whenSlept(0.4, [this] { std::filesystem::remove(root.host(kAddressBook)); });
    // Back in the end, for a reader that would wait without end.
    restoreWhenSlept(3, kAddressBook);
    EXPECT_EQ([Utils getMonogramTextFromAB:contact], nil);
    EXPECT_EQ(test::slept(), 1u);
    EXPECT_FALSE(root.exists(kAddressBook));
}

TEST_F(InitialsFromDatabase, LeaveNothingInTheCallersPoolForTheSecondsThatTheyWait) {
    const int contact = addNamed("John", "Smith");
    boot();
    auto initials = [contact] { [Utils getMonogramTextFromAB:contact]; };
    leftInPool(initials);  // what is made once
    const unsigned withoutWaiting = leftInPool(initials);
    replaceByGarbage(kAddressBook);
    restoreWhenSlept(1.2, kAddressBook);
    EXPECT_EQ(leftInPool(initials), withoutWaiting);
}

TEST_F(InitialsFromDatabase, StartAfreshFromAReadCountOfFour) {
    const int contact = addNamed("John", "Smith");
    replaceByGarbage(kAddressBook);
    boot();
    restoreWhenSlept(0.4, kAddressBook);
    EXPECT_TRUE([[Utils getMonogramTextFromAB:contact currentReadCount:4] isEqualToString:@"JS"]);
    const std::string line =
        "], Max waiting attempts over, hence returning monogram thorugh AB API for contact: " + std::to_string(contact);
    EXPECT_EQ(loggedLines(line), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Information => " + std::string(kReader) + ", [Line "), std::string::npos);
    // Once at once, and once more before the wait.
    EXPECT_EQ(loggedLines("], Error while preparing statement: 'file is not a database'"), 2);
}

TEST_F(InitialsFromDatabase, StartAfreshFromAReadCountBeyondFour) {
    const int contact = addNamed("John", "Smith");
    replaceByGarbage(kAddressBook);
    boot();
    restoreWhenSlept(0.4, kAddressBook);
    EXPECT_TRUE([[Utils getMonogramTextFromAB:contact currentReadCount:9] isEqualToString:@"JS"]);
    EXPECT_EQ(loggedLines("], Max waiting attempts over, hence returning monogram thorugh AB API for contact: " +
                          std::to_string(contact)),
              1);
}

TEST_F(InitialsFromDatabase, StartAfreshFromAReadCountOfFourWhenTheDatabaseCannotBeOpened) {
    const int contact = addNamed("John", "Smith");
    replaceByDirectory(kAddressBook);
    boot();
    restoreWhenSlept(0.4, kAddressBook);
    __lsan_disable();  // a connection that failed to open is never closed
    NSString* text = [Utils getMonogramTextFromAB:contact currentReadCount:4];
    __lsan_enable();
    EXPECT_TRUE([text isEqualToString:@"JS"]);
    const std::string line =
        "], Max waiting attempts over, hence returning monogram thorugh AB API for contact: " + std::to_string(contact);
    EXPECT_EQ(loggedLines(line), 1);
    EXPECT_EQ(loggedLines("], Error while opening database connection: 'unable to open database file'"), 2);
}

TEST_F(InitialsFromDatabase, WaitWithAReadCountOfThreeWithoutGivingUp) {
    const int contact = addNamed("John", "Smith");
    replaceByGarbage(kAddressBook);
    boot();
    restoreWhenSlept(0.4, kAddressBook);
    EXPECT_TRUE([[Utils getMonogramTextFromAB:contact currentReadCount:3] isEqualToString:@"JS"]);
    EXPECT_EQ(log().find("Max waiting attempts over"), std::string::npos);
}

class InitialsFromAddressBook : public test::ContactsTest {};

TEST_F(InitialsFromAddressBook, TakeNamesAsTheyAre) {
    const int both = addNamed("(John)", "smith");
    const int first = addNamed("anna", std::nullopt);
    const int last = addNamed("", "Petrova");
    const int none = addNamed("", "");
    boot();
    EXPECT_TRUE([[Utils monogramTextFromContactID:both] isEqualToString:@"(s"]);
    EXPECT_TRUE([[Utils monogramTextFromContactID:first] isEqualToString:@"a"]);
    EXPECT_TRUE([[Utils monogramTextFromContactID:last] isEqualToString:@"P"]);
    EXPECT_EQ([Utils monogramTextFromContactID:none], nil);
    EXPECT_EQ([Utils monogramTextFromContactID:4711], nil);
}

TEST_F(InitialsFromAddressBook, AreUtf16UnitsAndNotWhatTheEyeTakesForOne) {
    const int contact = addNamed("E\xCC\x81lodie", "C\xCC\xA7"
                                                   "elik");
    boot();
    EXPECT_TRUE([[Utils monogramTextFromContactID:contact] isEqualToString:@"EC"]);
    EXPECT_TRUE([[Utils monogramTextFromAB:contact] isEqualToString:@"EC"]);
}

TEST_F(InitialsFromAddressBook, LeaveNoCopiesOfTheNamesInTheCallersPool) {
    const int contact = addNamed("Anna Maria Magdalena", std::nullopt);
    boot();
    NSString* name = [NSString stringWithUTF8String:"Anna Maria Magdalena"];
    auto initials = [contact] { EXPECT_TRUE([[Utils monogramTextFromContactID:contact] isEqualToString:@"A"]); };
    auto personAndInitial = [contact, name] {
        EXPECT_NE([Utils getPersonRecordFromDB:contact], nullptr);
        EXPECT_TRUE([[name substringToIndex:1] isEqualToString:@"A"]);
    };
    leftInPool(initials);  // what is made once
    EXPECT_EQ(leftInPool(initials), leftInPool(personAndInitial));
}

TEST_F(InitialsFromAddressBook, AreNilOnceTheSharedAddressBookIsGivenUp) {
    const int contact = addNamed("John", "Smith");
    boot();
    EXPECT_TRUE([[Utils monogramTextFromContactID:contact] isEqualToString:@"JS"]);
    [Utils clearImageCache];
    EXPECT_EQ([Utils monogramTextFromContactID:contact], nil);
    EXPECT_EQ([Utils getPersonRecordFromDB:contact], nullptr);
}

}  // namespace

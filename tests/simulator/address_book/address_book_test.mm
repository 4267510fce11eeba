#include "simulator/frameworks/address_book/address_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/maker/database/schema.h"
#include "simulator/runtime/process/device.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/parameter_name.h"
#include "tests/support/temp_root.h"

namespace {

using testing::ElementsAre;

// A process of a phone whose address book the test fills.
class AddressBook : public testing::Test {
  protected:
    AddressBook() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~AddressBook() override {
        if (book_) CFRelease(book_);
        [pool_ release];
    }

    void boot(const char* region = "US") {
        phone::Device device = phone::readDevice(root_.path()).value();
        device.region = region;
        ASSERT_EQ(phone::problemOf(phone::writeDevice(root_.path(), device)), "");
        phone::boot(root_.path(), "com.apple.springboard");
        book_ = ABAddressBookCreate();
    }
    maker::AddressBookBuilder builder() { return maker::AddressBookBuilder::open(root_.path()).value(); }
    void add(const std::vector<maker::Person>& persons) {
        maker::AddressBookBuilder writer = builder();
        for (const maker::Person& person : persons) ASSERT_TRUE(writer.addPerson(person));
        ASSERT_TRUE(writer.finish());
    }
    ABRecordRef person(ABRecordID identifier) { return ABAddressBookGetPersonWithRecordID(book_, identifier); }
    ABRecordID owner(NSString* number) {
        return ABRecordGetRecordID(ABCFindPersonMatchingPhoneNumber(book_, number, 0, 0));
    }
    std::string copied(ABRecordID identifier, ABPropertyID property) {
        NSString* value = (NSString*)ABRecordCopyValue(person(identifier), property);
        std::string text = value ? [value UTF8String] : "NULL";
        [value release];
        return text;
    }

    test::TempRoot root_;
    NSAutoreleasePool* pool_;
    ABAddressBookRef book_ = NULL;
};

maker::Person named(const char* first, const char* number = nullptr) {
    maker::Person person;
    person.first = first;
    if (number) person.phones.push_back({number, ""});
    return person;
}

template <class Action>
bool raises(Action action) {
    @try {
        action();
    } @catch (NSException*) {
        return true;
    }
    return false;
}

std::vector<ABRecordID> identifiers(CFArrayRef people) {
    std::vector<ABRecordID> result;
    for (CFIndex index = 0; people && index < CFArrayGetCount(people); ++index) {
        result.push_back(ABRecordGetRecordID(CFArrayGetValueAtIndex(people, index)));
    }
    return result;
}

std::string bytes(CFDataRef data) {
    if (!data) return "NULL";
    std::string result(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                       static_cast<std::size_t>(CFDataGetLength(data)));
    CFRelease(data);
    return result;
}

TEST_F(AddressBook, FindsPersonsByTheirRecordID) {
    add({named("A"), named("B")});
    boot();
    EXPECT_EQ(ABRecordGetRecordID(person(2)), 2);
    EXPECT_EQ(person(3), nullptr);
    EXPECT_EQ(person(0), nullptr);
    EXPECT_EQ(person(-1), nullptr);
    EXPECT_EQ(person(2), person(2)) << "one ID is one record while the book lives";
}

TEST_F(AddressBook, NoBookHasNoPersons) {
    add({named("A", "(212) 555-0142")});
    boot();
    EXPECT_EQ(ABAddressBookGetPersonWithRecordID(NULL, 1), nullptr);
    EXPECT_EQ(ABCFindPersonMatchingPhoneNumber(NULL, @"(212) 555-0142", 0, 0), nullptr);
    EXPECT_EQ(ABRecordGetRecordID(NULL), kABRecordInvalidID);
    EXPECT_EQ(ABPersonCopyArrayOfAllLinkedPeople(NULL), nil);
    EXPECT_EQ(ABRecordCopyValue(NULL, kABPersonFirstNameProperty), nullptr);
    EXPECT_FALSE(ABPersonHasImageData(NULL));
    EXPECT_EQ(ABPersonCopyImageData(NULL), nil);
}

TEST_F(AddressBook, CopiesNamesAsTheDatabaseHoldsThem) {
    maker::Person full = named("Ann");
    full.last = "Lee";
    full.middle = "M";
    full.prefix = "Dr.";
    full.suffix = "Jr.";
    full.nickname = "A\u05D0\U0001F98A";
    full.organization = "Works";
    maker::Person empty = named("");
    add({full, empty});
    boot();
    EXPECT_EQ(copied(1, kABPersonFirstNameProperty), "Ann");
    EXPECT_EQ(copied(1, kABPersonLastNameProperty), "Lee");
    EXPECT_EQ(copied(1, kABPersonMiddleNameProperty), "M");
    EXPECT_EQ(copied(1, kABPersonPrefixProperty), "Dr.");
    EXPECT_EQ(copied(1, kABPersonSuffixProperty), "Jr.");
    EXPECT_EQ(copied(1, kABPersonNicknameProperty), "A\u05D0\U0001F98A");
    EXPECT_EQ(copied(1, kABPersonOrganizationProperty), "Works");
    EXPECT_EQ(copied(2, kABPersonFirstNameProperty), "");
    EXPECT_EQ(copied(2, kABPersonLastNameProperty), "NULL");
}

TEST_F(AddressBook, UnknownPropertiesRaise) {
    add({named("A")});
    boot();
    ABRecordRef record = person(1);
    EXPECT_TRUE(raises([&] { ABRecordCopyValue(record, 99); }));
}

TEST_F(AddressBook, LinkedPeopleComeInTheDatabasesOrderWithThePersonItself) {
    add({named("A"), named("B"), named("C"), named("D")});
    maker::AddressBookBuilder writer = builder();
    ASSERT_TRUE(writer.link({4, 1, 3}));
    ASSERT_TRUE(writer.finish());
    boot();
    for (ABRecordID identifier : {1, 3, 4}) {
        CFArrayRef people = ABPersonCopyArrayOfAllLinkedPeople(person(identifier));
        EXPECT_THAT(identifiers(people), ElementsAre(1, 3, 4));
        CFRelease(people);
    }
}

TEST_F(AddressBook, APersonThatIsLinkedToNobodyHasNoLinkedPeople) {
    add({named("A")});
    boot();
    EXPECT_EQ(ABPersonCopyArrayOfAllLinkedPeople(person(1)), nil);
}

TEST_F(AddressBook, CopiesImagesByFormat) {
    add({named("A"), named("B"), named("C"), named("D")});
    maker::AddressBookBuilder writer = builder();
    ASSERT_TRUE(writer.setThumbnail(1, "thumbnail"));
    ASSERT_TRUE(writer.setFullSizeImage(1, std::string("full\0size", 9)));
    ASSERT_TRUE(writer.setThumbnail(2, "thumbnail"));
    ASSERT_TRUE(writer.setThumbnail(3, ""));
    ASSERT_TRUE(writer.setNullThumbnail(4));
    ASSERT_TRUE(writer.finish());
    boot();
    EXPECT_EQ(bytes(ABPersonCopyImageData(person(1))), std::string("full\0size", 9));
    EXPECT_EQ(bytes(ABPersonCopyImageDataWithFormat(person(1), kABPersonImageFormatThumbnail)), "thumbnail");
    EXPECT_EQ(bytes(ABPersonCopyImageDataWithFormat(person(1), kABPersonImageFormatOriginalSize)),
              std::string("full\0size", 9));
    EXPECT_TRUE(ABPersonHasImageData(person(2)));
    EXPECT_EQ(bytes(ABPersonCopyImageData(person(2))), "thumbnail");
    EXPECT_EQ(bytes(ABPersonCopyImageDataWithFormat(person(2), kABPersonImageFormatOriginalSize)), "NULL");
    for (ABRecordID identifier : {3, 4}) {
        EXPECT_FALSE(ABPersonHasImageData(person(identifier)));
        EXPECT_EQ(bytes(ABPersonCopyImageData(person(identifier))), "NULL");
        EXPECT_EQ(bytes(ABPersonCopyImageDataWithFormat(person(identifier), kABPersonImageFormatThumbnail)), "NULL");
    }
}

struct Spelling {
    const char *region, *stored, *asked;
    bool found;
};

void PrintTo(const Spelling& spelling, std::ostream* out) {
    *out << spelling.region << ' ' << spelling.stored << " for " << spelling.asked;
}

class MatchingNumbers : public AddressBook, public testing::WithParamInterface<Spelling> {};

TEST_P(MatchingNumbers, FindTheirOwner) {
    auto [region, stored, asked, found] = GetParam();
    boot(region);
    add({named("Other", "+1 999"), named("Owner", stored)});
    EXPECT_EQ(owner([NSString stringWithUTF8String:asked]), found ? 2 : kABRecordInvalidID) << stored << " / " << asked;
}

INSTANTIATE_TEST_SUITE_P(All, MatchingNumbers,
                         testing::Values(Spelling{"US", "(212) 555-0142", "+12125550142", true},
                                         Spelling{"US", "+1 212 555 0142", "212.555.0142", true},
                                         Spelling{"US", "+49 30 23125118", "011493023125118", true},
                                         Spelling{"US", "555-0142", "(212) 555-0142", true},
                                         Spelling{"US", "212 555 0142 x12", "(212) 555-0142", true},
                                         Spelling{"US", "1-800-FLOWERS", "+18003569377", true},
                                         Spelling{"US", "(212) 555-0142", "(212) 555-1142", false},
                                         Spelling{"US", "(212) 555-0142", "Unknown", false},
                                         Spelling{"US", "(212) 555-0142", "", false},
                                         Spelling{"DE", "030 23125118", "+493023125118", true},
                                         Spelling{"DE", "+49 151 23456789", "0151/23456789", true},
                                         Spelling{"IL", "052-234-5678", "+972522345678", true},
                                         Spelling{"JP", "090-1234-5678", "+819012345678", true},
                                         Spelling{"JP", "+81 90 1234 5678", "０９０１２３４５６７８", true}),
                         test::ParameterName());

TEST_F(AddressBook, TheSurestMatchOwnsANumberThenTheLowestID) {
    boot();
    add({named("Local", "555-0142"), named("Whole", "(212) 555-0142"), named("Again", "+12125550142")});
    EXPECT_EQ(owner(@"212-555-0142"), 2);
    EXPECT_EQ(owner(@"415-555-0142"), 1);
}

TEST_F(AddressBook, HalfASurrogatePairIsNobodysNumber) {
    boot();
    add({named("A", "(212) 555-0142")});
    unichar half = 0xD83D;
    EXPECT_EQ(owner([NSString stringWithCharacters:&half length:1]), kABRecordInvalidID);
}

TEST_F(AddressBook, ArgumentsOfUnknownMeaningRaise) {
    boot();
    EXPECT_TRUE(raises([&] { ABCFindPersonMatchingPhoneNumber(book_, @"1", 1, 0); }));
}

TEST_F(AddressBook, SeesChangesMadeElsewhere) {
    add({named("Old")});
    boot();
    ABRecordRef record = person(1);
    EXPECT_EQ(copied(1, kABPersonFirstNameProperty), "Old");
    maker::AddressBookBuilder writer = builder();
    ASSERT_TRUE(writer.setNames(1, "New", std::nullopt));
    ASSERT_TRUE(writer.finish());
    EXPECT_EQ(copied(1, kABPersonFirstNameProperty), "New");
    ASSERT_TRUE(writer.removePerson(1));
    ASSERT_TRUE(writer.finish());
    EXPECT_EQ(person(1), nullptr);
    EXPECT_EQ(ABRecordCopyValue(record, kABPersonFirstNameProperty), nullptr);
}

TEST_F(AddressBook, AMissingDatabaseIsAnEmptyBookUntilItAppears) {
    boot();
    testing::internal::CaptureStderr();
    EXPECT_EQ(person(1), nullptr);
    EXPECT_EQ(owner(@"(212) 555-0142"), kABRecordInvalidID);
    std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(told,
              "AddressBook: /private/var/mobile/Library/AddressBook/AddressBook.sqlitedb: there is no such file\n");
    add({named("A", "(212) 555-0142")});
    EXPECT_EQ(owner(@"(212) 555-0142"), 1);
}

TEST_F(AddressBook, ADatabaseThatIsReplacedIsReadAnew) {
    add({named("Old")});
    boot();
    EXPECT_EQ(copied(1, kABPersonFirstNameProperty), "Old");
    std::string file = root_.path() / maker::addressBookShape().path;
    std::filesystem::rename(file, file + ".old");
    add({named("New")});
    EXPECT_EQ(copied(1, kABPersonFirstNameProperty), "New");
}

TEST_F(AddressBook, ABrokenDatabaseIsAnEmptyBook) {
    root_.write("/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb",
                "this is no database, but it is a file");
    boot();
    testing::internal::CaptureStderr();
    EXPECT_EQ(person(1), nullptr);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("file is not a database"));
}

TEST_F(AddressBook, AnswersFromSeveralThreadsAtOnce) {
    add({named("A", "(212) 555-0142"), named("B", "(212) 555-0143")});
    boot();
    std::atomic<int> wrong = 0;
    auto ask = [&] {
        [NSThread currentThread];
        NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
        for (int round = 0; round < 200; ++round) {
            if (owner(@"+12125550143") != 2 || ABRecordGetRecordID(person(1)) != 1) ++wrong;
        }
        [pool release];
    };
    std::vector<std::thread> threads;
    for (int count = 0; count < 4; ++count) threads.emplace_back(ask);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST_F(AddressBook, FormatsNumbersForDisplay) {
    boot("DE");
    auto format = [](NSString* text) {
        NSString* copy = [ABPhoneFormatting abCopyPhoneNumberFromString:text];
        std::string result = copy ? [copy UTF8String] : "nil";
        [copy release];
        return result;
    };
    EXPECT_EQ(format(@"+493023125118"), "030 23125118");
    EXPECT_EQ(format(@"+12125550142"), "+1 212-555-0142");
    EXPECT_EQ(format(@"Unknown"), "Unknown");
    EXPECT_EQ(format(@""), "");
    EXPECT_EQ(format(nil), "nil");
}

TEST_F(AddressBook, FormattingKeepsTextsThatHaveNoUtf8) {
    boot();
    unichar half[] = {'1', 0xD83D};
    NSString* text = [NSString stringWithCharacters:half length:2];
    NSString* copy = [ABPhoneFormatting abCopyPhoneNumberFromString:text];
    EXPECT_TRUE([copy isEqual:text]);
    [copy release];
}

}  // namespace

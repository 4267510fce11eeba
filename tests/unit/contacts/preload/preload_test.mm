#import <objc/runtime.h>

#include <malloc.h>
#include <math.h>
#include <sqlite3.h>
#include <string.h>

#include <filesystem>
#include <fstream>

#include "simulator/maker/contacts/address_book_builder.h"
#include "simulator/runtime/process/device.h"
#include "tests/support/extension.h"
#include "tests/support/parameter_name.h"
#include "tests/support/pictures.h"
#include "tests/support/sqlite_calls.h"

namespace {

using phone::Pixel;
using test::near;
using test::pixel;

constexpr Pixel kRed{255, 0, 0, 255}, kBlue{0, 0, 255, 255};
constexpr const char* kImages = "/private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb";
constexpr const char* kOpenError = "com.norvex.ZelkaCB => Error: Error while opening database connection: '";

class Preload : public test::ExtensionTest {
  protected:
    // Contacts 1, 2, 3... with these thumbnails; a contact without bytes gets no thumbnail.
    void addThumbnails(const std::vector<std::optional<std::string>>& thumbnails) {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        for (const std::optional<std::string>& bytes : thumbnails) {
            maker::Person person;
            person.first = "Anna";
            const int contact = book.addPerson(person).value();
            if (bytes) EXPECT_EQ(phone::problemOf(book.setThumbnail(contact, *bytes)), "");
        }
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
    void execute(const char* sql) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open_v2(root.host(kImages).c_str(), &database, SQLITE_OPEN_READWRITE, "unix"), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
    static UIImage* cached(int contact) { return [Utils getContactImageInCache:contact]; }
    static double coveredPixels(UIImage* picture) {
        double sum = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 80; ++x) sum += pixel(picture, x, y).a / 255.0;
        return sum;
    }
};

TEST_F(Preload, FillsTheCacheWithDiscsWhenRounded) {
    addThumbnails({test::bmp(20, 10, test::kRed), std::nullopt, test::bmp(200, 300, test::kBlue)});
    boot();
    [Utils prepareImageCache];
    for (int contact : {1, 3}) {
        UIImage* picture = cached(contact);
        EXPECT_EQ([picture size].width, 80);
        EXPECT_EQ([picture scale], 1);
        EXPECT_NEAR(coveredPixels(picture), M_PI * 1600, 40);
        EXPECT_EQ(pixel(picture, 0, 0).a, 0);
        EXPECT_EQ(pixel(picture, 79, 79).a, 0);
    }
    EXPECT_TRUE(near(pixel(cached(1), 40, 40), kRed));
    EXPECT_TRUE(near(pixel(cached(3), 40, 40), kBlue));
    EXPECT_EQ(cached(2), nil);
}

TEST_F(Preload, FillsTheCacheWithSquaresWhenNotRounded) {
    addThumbnails({test::bmp(20, 10, test::kRed)});
    boot();
    [[objc_getClass("ZLKCBSettings") sharedSettings] setIsRoundedPicsEnabled:NO];
    [Utils prepareImageCache];
    EXPECT_NEAR(coveredPixels(cached(1)), 6400 - (4 - M_PI) * 25, 4);
}

TEST_F(Preload, MakesThePicturesThatSingleLookupsMake) {
    addThumbnails({test::bmp(20, 10, test::kRed)});
    boot();
    [Utils prepareImageCache];
    UIImage* single = [Utils getImageFromImageData:test::data(test::bmp(20, 10, test::kRed))];
    EXPECT_TRUE(test::samePixels(cached(1), single));
}

TEST_F(Preload, ReadsAllThumbnailsWithOneStatement) {
    addThumbnails({test::bmp(2, 2, test::kRed), test::bmp(2, 2, test::kRed), test::bmp(2, 2, test::kRed)});
    boot();
    test::SqliteCalls& calls = test::sqliteCalls();
    calls.opened = calls.prepared = calls.stepped = 0;
    [Utils prepareImageCache];
    EXPECT_EQ(calls.opened, 1);
    EXPECT_EQ(calls.prepared, 1);
    EXPECT_EQ(calls.stepped, 4);
}

TEST_F(Preload, EmptiesTheCacheFirst) {
    addThumbnails({std::nullopt});
    boot();
    [Utils setContactImage:test::redPicture(8, 8, 1) contactId:1];
    [Utils setContactImage:test::redPicture(8, 8, 1) withID:@"anna@example.com"];
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"anna@example.com"], nil);
}

TEST_F(Preload, StartsAgainFromAnEmptyCache) {
    addThumbnails({test::bmp(2, 2, test::kRed)});
    boot();
    [Utils prepareImageCache];
    [Utils setContactImage:test::redPicture(8, 8, 1) contactId:77];
    execute("DELETE FROM ABThumbnailImage");
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_EQ(cached(77), nil);
}

TEST_F(Preload, LeavesTheContactIDMemoAlone) {
    addThumbnails({std::nullopt});
    {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        maker::Person person;
        person.first = "Bob";
        person.emails.push_back({"bob@example.com", ""});
        EXPECT_EQ(book.addPerson(person).value(), 2);
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
    boot();
    EXPECT_EQ([Utils getContactID:@"bob@example.com"], 2);
    [Utils prepareImageCache];
    const int opened = test::sqliteCalls().opened;
    EXPECT_EQ([Utils getContactID:@"bob@example.com"], 2);
    EXPECT_EQ(test::sqliteCalls().opened, opened);
}

TEST_F(Preload, StoresATransparentPictureForWhatCannotBeDecoded) {
    std::string truncated = test::bmp(40, 40, test::kRed);
    truncated.resize(900);
    addThumbnails({"x", "", truncated, test::bmpHeader(65000, 65000), test::animatedGif()});
    boot();
    [Utils prepareImageCache];
    for (int contact = 1; contact <= 4; ++contact) {
        ASSERT_NE(cached(contact), nil) << contact;
        EXPECT_EQ([cached(contact) size].width, 80);
        EXPECT_TRUE(test::isTransparent(cached(contact)));
    }
    EXPECT_TRUE(near(pixel(cached(5), 40, 40), kRed));
}

TEST_F(Preload, LeavesOutOtherFormatsAndMissingData) {
    addThumbnails({std::nullopt, std::nullopt});
    {
        maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
        EXPECT_EQ(phone::problemOf(book.setThumbnail(1, test::bmp(2, 2, test::kRed), 5)), "");
        EXPECT_EQ(phone::problemOf(book.setNullThumbnail(2)), "");
        EXPECT_EQ(phone::problemOf(book.finish()), "");
    }
    boot();
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_EQ(cached(2), nil);
}

TEST_F(Preload, LetsALaterRowOfAContactReplaceAnEarlierOne) {
    addThumbnails({test::bmp(2, 2, test::kRed)});
    execute("CREATE TABLE copy(record_id INTEGER, format INTEGER, derived_from_format INTEGER, data BLOB)");
    execute("INSERT INTO copy SELECT record_id, format, 0, data FROM ABThumbnailImage");
    execute("INSERT INTO copy SELECT record_id, format, 0, x'00' FROM ABThumbnailImage");
    execute("DROP TABLE ABThumbnailImage; ALTER TABLE copy RENAME TO ABThumbnailImage");
    boot();
    [Utils prepareImageCache];
    EXPECT_TRUE(test::isTransparent(cached(1)));
}

TEST_F(Preload, TellsADatabaseThatCannotBeOpenedAndStops) {
    std::filesystem::create_directory(root.host(kImages));
    boot();
    [Utils setContactImage:test::redPicture(8, 8, 1) contactId:1];
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_EQ(loggedLines(std::string(kOpenError) + "unable to open database file'"), 1);
}

TEST_F(Preload, TellsADatabaseThatCannotBePreparedAndStops) {
    root.write(kImages, std::string(4096, 'x'));
    boot();
    [Utils prepareImageCache];
    EXPECT_EQ(loggedLines(std::string(kOpenError) + "file is not a database'"), 1);
}

TEST_F(Preload, TellsADatabaseOfAnotherShapeAndStops) {
    addThumbnails({test::bmp(2, 2, test::kRed)});
    execute("ALTER TABLE ABThumbnailImage RENAME COLUMN data TO bytes");
    boot();
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_EQ(loggedLines(std::string(kOpenError) + "no such column: data'"), 1);
}

// The platform's refusal to make a data object.
id refuseData(id, SEL, const void*, NSUInteger) { return nil; }

TEST_F(Preload, SubstitutesForBytesThatCannotBeTakenOut) {
    addThumbnails({test::bmp(2, 2, test::kRed)});
    boot();
    UIImage* recent = [Utils getImage:@"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/recent@2x.png"];
    Method method = class_getClassMethod([NSData class], @selector(dataWithBytes:length:));
    IMP before = method_setImplementation(method, reinterpret_cast<IMP>(refuseData));
    [Utils prepareImageCache];
    UIImage* silhouette = [[cached(1) retain] autorelease];
    [[objc_getClass("ZLKCBSettings") sharedSettings] setIsMonogramEnabled:NO];
    [Utils prepareImageCache];
    UIImage* plain = cached(1);
    method_setImplementation(method, before);
    EXPECT_NE(silhouette, nil);
    EXPECT_GT([silhouette size].width, 0);
    EXPECT_NE(plain, nil);
    EXPECT_FALSE(test::samePixels(silhouette, recent));
    EXPECT_TRUE(test::samePixels(plain, recent));
    EXPECT_EQ(loggedLines("], Getting image for 1"), 2);
}

// Refuses once only: the linked contact's photo can be had.
IMP platformData;
int dataAsked = 0;
id refuseDataOnce(id receiver, SEL command, const void* bytes, NSUInteger length) {
    if (++dataAsked == 1) return nil;
    return reinterpret_cast<id (*)(id, SEL, const void*, NSUInteger)>(platformData)(receiver, command, bytes, length);
}

TEST_F(Preload, StoresNothingForBytesThatCannotBeTakenOutWhenALinkedContactHasAPhoto) {
    maker::AddressBookBuilder book = maker::AddressBookBuilder::open(root.path()).value();
    std::vector<int> linked;
    for (const char* name : {"Anna", "Anne"}) {
        maker::Person person;
        person.first = name;
        linked.push_back(book.addPerson(person).value());
        EXPECT_EQ(phone::problemOf(book.setThumbnail(linked.back(), test::bmp(2, 2, test::kRed))), "");
    }
    EXPECT_EQ(phone::problemOf(book.link(linked)), "");
    EXPECT_EQ(phone::problemOf(book.finish()), "");
    boot();
    Method method = class_getClassMethod([NSData class], @selector(dataWithBytes:length:));
    platformData = method_setImplementation(method, reinterpret_cast<IMP>(refuseDataOnce));
    [Utils prepareImageCache];
    EXPECT_EQ(cached(1), nil);
    EXPECT_NE(cached(2), nil);
    EXPECT_EQ(loggedLines("], Getting image for 1"), 1);
}

// Of this process: "VmRSS" or "VmHWM", its peak.
long kilobytes(const char* name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != std::string(name) + ":") continue;
        long value = 0;
        status >> value;
        return value;
    }
    return 0;
}

TEST_F(Preload, KeepsMemoryFlat) {
    // Each photo is 3 MB, and 4 decoded: all of them at once would be 700.
    constexpr int kPhotos = 100;
    addThumbnails(std::vector<std::optional<std::string>>(kPhotos, test::bmp(1000, 1000, test::kRed)));
    boot();
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    const long before = kilobytes("VmRSS");
    [Utils prepareImageCache];
    int found = 0;
    for (int contact = 1; contact <= kPhotos; ++contact) found += cached(contact) != nil;
    EXPECT_EQ(found, kPhotos);
    EXPECT_GT(before, 0);
    // The address sanitizer keeps up to 256 MB of what was freed.
    EXPECT_LT(kilobytes("VmHWM") - before, 400 * 1024);
}

// From now on the system says that this is another machine.
void becomeAnother(const char* machine, const char* name) {
    phone::Device device = phone::device();
    device.machine = machine;
    phone::setDevice(device);
    ASSERT_STREQ([[Hardware platformString] UTF8String], name);
}

TEST_F(Preload, IsWorthItForTheDeviceThatItWasFirstAskedOn) {
    boot();
    EXPECT_TRUE([Utils canprepareImageCache]);
    becomeAnother("iPad5,3", "iPad");
    EXPECT_TRUE([Utils canprepareImageCache]);
}

TEST_F(Preload, FindsOutTheDeviceWhenItIsFirstAskedAndNotBefore) {
    boot();
    becomeAnother("iPad5,3", "iPad");
    EXPECT_FALSE([Utils canprepareImageCache]);
    becomeAnother("iPhone3,1", "iPhone 4");
    EXPECT_FALSE([Utils canprepareImageCache]);
}

struct Machine {
    const char* identifier;
    bool worthIt;
};

void PrintTo(const Machine& machine, std::ostream* out) { *out << machine.identifier; }

class PreloadOnDevice : public test::ExtensionTest, public testing::WithParamInterface<Machine> {
  protected:
    void becomeMachine(const char* machine) {
        NSMutableDictionary* device =
            [NSMutableDictionary dictionaryWithContentsOfFile:[NSString stringWithUTF8String:deviceFile().c_str()]];
        [device setObject:[NSString stringWithUTF8String:machine] forKey:@"Machine"];
        ASSERT_TRUE([device writeToFile:[NSString stringWithUTF8String:deviceFile().c_str()] atomically:NO]);
    }
    std::string deviceFile() const { return (root.path() / "device.plist").string(); }
};

TEST_P(PreloadOnDevice, IsWorthItOnPhonesNewerThanThe3GS) {
    @autoreleasepool {
        becomeMachine(GetParam().identifier);
    }
    boot();
    EXPECT_EQ([Utils canprepareImageCache] != NO, GetParam().worthIt);
    EXPECT_EQ([Utils canprepareImageCache] != NO, GetParam().worthIt);
}

INSTANTIATE_TEST_SUITE_P(Machines, PreloadOnDevice,
                         testing::Values(Machine{"iPhone1,1", false}, Machine{"iPhone1,2", false},
                                         Machine{"iPhone2,1", false}, Machine{"iPhone2,2", false},
                                         Machine{"iPhone3,1", true}, Machine{"iPhone3,3", true},
                                         Machine{"iPhone4,1", true}, Machine{"iPhone7,2", true},
                                         Machine{"iPhone12,1", true}, Machine{"iPod5,1", false},
                                         Machine{"iPad5,3", false}, Machine{"i386", false}, Machine{"x86_64", false},
                                         Machine{"iPhone", false}, Machine{"iphone7,2", false}),
                         test::ParameterName());

}  // namespace

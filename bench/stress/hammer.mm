// One process of the phone whose threads use the library's shared state as hard as they can: the main thread as rows
// do, the shared queue's threads as loads do, and the notification thread as settings and address-book changes do.
// Which pictures and contacts come back is compared with what the databases held at the start.
//
//   stress_hammer ROOT SECONDS SEED
//
// Prints {"lookups", "loads", "resolved", "changes", "wrongPictures", "wrongContacts", "missingPictures"} at the end.
#import <Foundation/Foundation.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "simulator/frameworks/core_foundation/darwin_notifications.h"
#include "simulator/frameworks/dispatch/dispatch.h"
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/remote/pixels.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/process/injector.h"
#include "simulator/runtime/process/process.h"

@protocol ZelkaCBUtils
+ (UIImage*)getContactImageInCache:(int)contact;
+ (UIImage*)getContactImageOnly:(int)contact monogramText:(NSString*)text newImage:(BOOL)fresh;
+ (UIImage*)getImageFromImageData:(NSData*)data;
+ (int)getContactID:(NSString*)text;
+ (NSOperationQueue*)queue;
@end

namespace {

#define Utils ((Class<ZelkaCBUtils>)objc_getClass("ZelkaCBUtils"))

using Clock = std::chrono::steady_clock;

constexpr int kContacts = 400;    // few enough for the threads to meet
constexpr int kQueueLength = 64;  // loads under way at a time
constexpr int kCheckOneIn = 8;    // looking at pixels takes longer than what is measured
constexpr int kPostsPerSecond = 400;

struct Colour {
    int red, green, blue;
    bool isNear(Colour other) const {
        constexpr int kTolerance = 12;  // of the JPEG format and of scaling
        return std::abs(red - other.red) <= kTolerance && std::abs(green - other.green) <= kTolerance &&
               std::abs(blue - other.blue) <= kTolerance;
    }
};

struct Address {
    std::string text;
    int contact;
};

// What the databases held before anything changed; the changes that follow are of nobody in here.
struct Expected {
    std::vector<int> contacts;
    std::map<int, Colour> photos;
    std::vector<Address> addresses;
};

struct Counts {
    std::atomic<long> lookups{0}, loads{0}, resolved{0}, changes{0};
    std::atomic<long> wrongPictures{0}, wrongContacts{0}, missingPictures{0};
};

Expected expected;
Counts counts;
std::atomic<bool> isOver{false};
std::atomic<int> queued{0};

std::optional<Colour> centreOf(UIImage* picture) {
    const hosts::Pixels pixels = hosts::pixelsOf(picture);
    if (pixels.empty()) return std::nullopt;
    const uint8_t* centre = pixels.at(pixels.width / 2, pixels.height / 2);
    return Colour{centre[0], centre[1], centre[2]};
}

void check(UIImage* picture, int contact) {
    auto photo = expected.photos.find(contact);
    if (photo == expected.photos.end()) return;
    const std::optional<Colour> seen = centreOf(picture);
    if (!seen || !seen->isNear(photo->second)) ++counts.wrongPictures;
}

maker::Database openDatabase(const std::filesystem::path& path) {
    auto database = maker::Database::openToRead(phone::root() / path);
    if (!database) {
        std::fprintf(stderr, "stress_hammer: %s\n", phone::problemOf(database).c_str());
        std::exit(1);
    }
    return std::move(*database);
}

void readPhotos() {
    const maker::Database images = openDatabase(maker::imagesShape().path);
    maker::Statement rows = images.prepare("SELECT record_id, data FROM ABThumbnailImage WHERE format = 0");
    while (rows.step()) {
        @autoreleasepool {
            const int contact = rows.integer(0);
            const std::string bytes = rows.text(1);
            UIImage* picture = [Utils getImageFromImageData:[NSData dataWithBytes:bytes.data() length:bytes.size()]];
            if (auto colour = centreOf(picture)) expected.photos[contact] = *colour;
        }
    }
}

void readBook(int limit) {
    const maker::Database book = openDatabase(maker::addressBookShape().path);
    maker::Statement people = book.prepare("SELECT ROWID FROM ABPerson WHERE ROWID <= ? ORDER BY ROWID");
    people.bind(1, limit);
    while (people.step()) expected.contacts.push_back(people.integer(0));
    // Addresses that are no other address's ending, and phone numbers in full.
    maker::Statement addresses = book.prepare(
        "SELECT value, record_id FROM ABMultiValue v WHERE record_id <= ?1 AND (property = 3 AND value LIKE '+%' OR "
        "property = 4 AND record_id > 1000) AND (SELECT count(*) FROM ABMultiValue o WHERE o.value = v.value) = 1");
    addresses.bind(1, limit * 4);
    while (addresses.step() && expected.addresses.size() < 200)
        expected.addresses.push_back({addresses.text(0), addresses.integer(1)});
}

}  // namespace

@interface StressLoad : NSObject {
  @public
    int contact;
    BOOL looksAtIt;
    const Address* address;
}
- (void)run;
@end

@implementation StressLoad
- (void)run {
    UIImage* picture = [Utils getContactImageOnly:contact monogramText:@"AB" newImage:NO];
    ++counts.loads;
    if (picture == nil) ++counts.missingPictures;
    if (looksAtIt) check(picture, contact);
    if (address != nullptr) {
        const int found = [Utils getContactID:[NSString stringWithUTF8String:address->text.c_str()]];
        ++counts.resolved;
        // Without a shared address book a phone number is nobody's.
        if (found >= 1 && found != address->contact) ++counts.wrongContacts;
    }
    --queued;
}
@end

namespace {

void queueLoad(int contact, bool looksAtIt, const Address* address) {
    StressLoad* load = [[StressLoad alloc] init];
    load->contact = contact;
    load->looksAtIt = looksAtIt;
    load->address = address;
    NSInvocationOperation* operation = [[NSInvocationOperation alloc] initWithTarget:load
                                                                            selector:@selector(run)
                                                                              object:nil];
    ++queued;
    [[Utils queue] addOperation:operation];
    [operation release];
    [load release];
}

// A row: what is cached is shown (its pixels are read) at once, and what is not is loaded.
void showRow(std::mt19937& random) {
    const int contact = expected.contacts[random() % expected.contacts.size()];
    UIImage* cached = [Utils getContactImageInCache:contact];
    ++counts.lookups;
    if (cached != nil) {
        [cached size];
        if (random() % kCheckOneIn == 0) check(cached, contact);
    } else if (queued < kQueueLength) {
        const Address* address = nullptr;
        if (random() % 4 == 0) address = &expected.addresses[random() % expected.addresses.size()];
        queueLoad(contact, random() % kCheckOneIn == 0, address);
    }
}

}  // namespace

// Posts to this process and every other of the root; the callbacks run on the thread that follows the notifications.
@interface StressPoster : NSObject
+ (void)post:(NSNumber*)seed;
@end

@implementation StressPoster
+ (void)post:(NSNumber*)seed {
    std::mt19937 random([seed unsignedIntValue]);
    while (!isOver) {
        const bool settings = random() % 8 == 0;
        phone::require(phone::postNotification(phone::root(), settings
                                                                  ? "com.norvex.ZelkaCBRecentsEnabledNotification"
                                                                  : "__ABDataBaseChangedByOtherProcessNotification"));
        ++counts.changes;
        [NSThread sleepForTimeInterval:1.0 / kPostsPerSecond];
    }
}
@end

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: stress_hammer ROOT SECONDS SEED\n");
        return 2;
    }
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    const int report = dup(STDOUT_FILENO);
    phone::boot(argv[1], "com.apple.springboard");
    phone::injectLibraries();
    if (Utils == Nil) {
        std::fprintf(stderr, "stress_hammer: the root has no extension library\n");
        return 1;
    }
    const unsigned seed = static_cast<unsigned>(std::atoi(argv[3]));
    readPhotos();
    readBook(kContacts);
    if (expected.contacts.empty() || expected.addresses.empty()) {
        std::fprintf(stderr, "stress_hammer: the root's address book is too small\n");
        return 1;
    }
    phone::deliverNotificationsOn(phone::DeliveryThread::watcher);
    [NSThread detachNewThreadSelector:@selector(post:)
                             toTarget:[StressPoster class]
                           withObject:[NSNumber numberWithUnsignedInt:seed + 1]];
    std::mt19937 random(seed);
    const auto end = Clock::now() + std::chrono::seconds(std::atoi(argv[2]));
    while (Clock::now() < end) {
        @autoreleasepool {
            for (int row = 0; row < 16; ++row) showRow(random);
        }
    }
    isOver = true;
    [[Utils queue] waitUntilAllOperationsAreFinished];
    dprintf(report,
            "{\"lookups\": %ld, \"loads\": %ld, \"resolved\": %ld, \"changes\": %ld, \"wrongPictures\": %ld, "
            "\"wrongContacts\": %ld, \"missingPictures\": %ld}\n",
            counts.lookups.load(), counts.loads.load(), counts.resolved.load(), counts.changes.load(),
            counts.wrongPictures.load(), counts.wrongContacts.load(), counts.missingPictures.load());
    [pool drain];
    _exit(0);
}

// What several threads may do to the image cache, the contact-ID memo and the shared address book at the same time.
#include <atomic>
#include <random>
#include <thread>
#include <vector>

#include "simulator/maker/contacts/address_book_builder.h"
#include "tests/support/extension.h"

// Stands for a picture; counts how many there are, and how many each thread destroyed.
@interface CountedPicture : NSObject
@end

static std::atomic<int> pictures{0};
static thread_local int picturesDestroyedHere = 0;

@implementation CountedPicture
- (id)init {
    ++pictures;
    return [super init];
}
- (void)dealloc {
    --pictures;
    ++picturesDestroyedHere;
    [super dealloc];
}
@end

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 3000;

class SharedState : public test::ExtensionTest {
  protected:
    // Every thread runs the work that many times, in a pool of each round's own.
    template <class Work>
    static void onManyThreads(Work work) {
        std::vector<std::thread> threads;
        for (unsigned thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([thread, work] {
                std::mt19937 random(thread);
                for (int round = 0; round < kRounds; ++round) {
                    @autoreleasepool {
                        work(random);
                    }
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
    }

    // A picture whose width tells whose it is.
    static UIImage* pictureOf(int contact) {
        UIGraphicsBeginImageContext(CGSizeMake(contact, 1));
        UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return picture;
    }
};

TEST_F(SharedState, APictureStaysWithItsReaderWhileOthersRemoveIt) {
    boot();
    [Utils isIOS_7];
    std::atomic<int> wrong{0};
    onManyThreads([&wrong](std::mt19937& random) {
        const int contact = 1 + static_cast<int>(random() % 16);
        switch (random() % 4) {
            case 0:
                [Utils setContactImage:pictureOf(contact) contactId:contact];
                break;
            case 1:
                [Utils removeImageFromCache:contact];
                break;
            case 2:
                if (random() % 32 == 0) [Utils clearImageCache];
                break;
            default:
                if (UIImage* picture = [Utils getContactImageInCache:contact]; picture != nil) {
                    std::this_thread::yield();
                    if ([picture size].width != contact) ++wrong;
                }
        }
    });
    EXPECT_EQ(wrong, 0);
}

TEST_F(SharedState, NoStoreIsLostWhenThreadsStoreSideBySide) {
    boot();
    [Utils isIOS_7];
    UIImage* picture = pictureOf(3);
    std::atomic<int> next{1};
    onManyThreads([&](std::mt19937&) { [Utils setContactImage:picture contactId:next++]; });
    int missing = 0;
    for (int contact = 1; contact <= kThreads * kRounds; ++contact)
        if ([Utils getContactImageInCache:contact] != picture) ++missing;
    EXPECT_EQ(missing, 0);
    [Utils clearImageCache];
    for (int contact = 1; contact <= kThreads * kRounds; ++contact)
        if ([Utils getContactImageInCache:contact] != nil) ++missing;
    EXPECT_EQ(missing, 0);
}

TEST_F(SharedState, WhatLeavesTheCacheIsLetGo) {
    boot();
    [Utils isIOS_7];
    UIImage* picture = [pictureOf(2) retain];
    NSUInteger before = 0;
    @autoreleasepool {
        before = [picture retainCount];
        for (int round = 0; round < 3; ++round) {
            [Utils setContactImage:picture contactId:7];
            [Utils setContactImage:picture contactId:7];
            [Utils setContactImage:picture withID:@"a picture"];
            EXPECT_EQ([Utils getContactImageInCache:7], picture);
            [Utils removeImageFromCacheForID:@"a picture"];
            [Utils clearImageCache];
        }
    }
    EXPECT_EQ([picture retainCount], before);
    [picture release];
}

// Who clears a large cache does not wait for all of it to be destroyed.
TEST_F(SharedState, ALargeCacheIsDestroyedInPartsOnTheQueue) {
    constexpr int kPictures = 5000;
    boot();
    @autoreleasepool {
        for (int contact = 1; contact <= kPictures; ++contact) {
            CountedPicture* picture = [[CountedPicture alloc] init];
            [Utils setContactImage:(UIImage*)picture contactId:contact];
            [picture release];
        }
    }
    EXPECT_EQ(pictures, kPictures);
    [Utils clearImageCache];
    EXPECT_GT(picturesDestroyedHere, 0);
    EXPECT_LE(picturesDestroyedHere, 512);
    EXPECT_EQ([Utils getContactImageInCache:1], nil);
    [[Utils queue] waitUntilAllOperationsAreFinished];
    EXPECT_EQ(pictures, 0);
}

TEST_F(SharedState, AKeyThatChangesAfterwardsChangesNothing) {
    boot();
    NSMutableString* key = [NSMutableString stringWithString:@"ann"];
    UIImage* picture = pictureOf(2);
    [Utils setContactImage:picture withID:key];
    [key appendString:@"a"];
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"ann"], picture);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"anna"], nil);
}

TEST_F(SharedState, NumbersBesideTheAddressBookThatIsGivenUpResolveOrAreNobodys) {
    maker::Person ann;
    ann.first = "Ann";
    ann.phones = {{"+1 212 555 0142", ""}};
    ann.emails = {{"ann@example.com", ""}};
    auto book = maker::AddressBookBuilder::open(root.path());
    const int annID = book->addPerson(ann).value();
    ASSERT_TRUE(book->finish());
    boot();
    std::atomic<int> wrong{0};
    std::thread clearing([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        @autoreleasepool {
            [Utils clearImageCache];
        }
    });
    std::vector<std::thread> asking;
    for (int thread = 0; thread < kThreads; ++thread) {
        asking.emplace_back([&wrong, annID] {
            for (int round = 0; round < 100; ++round) {
                @autoreleasepool {
                    const int byNumber = [Utils getContactID:@"(212) 555-0142"];
                    if (byNumber != annID && byNumber != 0) ++wrong;
                    if ([Utils getContactID:@"ann@example.com"] != annID) ++wrong;
                    [Utils getPersonRecordFromDB:annID];
                    [Utils removeContactIDFromCache:annID];
                }
            }
        });
    }
    for (std::thread& thread : asking) thread.join();
    clearing.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ([Utils getAddressBook], nullptr);
}

}  // namespace

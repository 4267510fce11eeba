#include <gmock/gmock.h>

#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "tests/support/extension.h"

namespace {

class ImageCache : public test::ExtensionTest {
  protected:
    ImageCache() { boot(); }

    UIImage* picture() const {
        UIGraphicsBeginImageContext(CGSizeMake(2, 2));
        UIImage* made = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return made;
    }

    int madeCache() const { return loggedLines("], Creating image cache for com.apple.springboard."); }
};

TEST_F(ImageCache, IsMadeByTheFirstMessageToTheClass) {
    EXPECT_EQ(madeCache(), 0);
    [Utils isIOS_7];
    EXPECT_EQ(madeCache(), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Information => +[ZelkaCBUtils initImageCache], [Line "),
              std::string::npos);
}

class ImageCacheElsewhere : public test::ExtensionTest {};

// A row of the system's Contacts list asks for the system's version before it asks what process this is.
TEST_F(ImageCacheElsewhere, IsMadeByTheFirstLayoutOfAContactsRow) {
    boot("com.apple.mobilephone");
    testing::internal::CaptureStderr();
    [[[[ABMemberCell alloc] init] autorelease] layoutSubviews];
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("], Creating image cache for com.apple.mobilephone."));
}

TEST_F(ImageCache, IsMadeOnce) {
    UIImage* image = picture();
    [Utils setContactImage:image contactId:1];
    [Utils initImageCache];
    EXPECT_EQ([Utils getContactImageInCache:1], image);
    EXPECT_EQ(madeCache(), 1);
}

TEST_F(ImageCache, IsNotMadeAgainForASubclass) {
    [Utils isIOS_7];
    Class subclass = objc_allocateClassPair(objc_getClass("ZelkaCBUtils"), "OtherUtils", 0);
    objc_registerClassPair(subclass);
    EXPECT_TRUE([(Class<ZelkaCBUtils>)subclass isIOS_7]);
    EXPECT_EQ(madeCache(), 1);
}

TEST_F(ImageCache, GivesBackWhatWasStored) {
    UIImage* byID = picture();
    UIImage* byText = picture();
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
    [Utils setContactImage:byID contactId:7];
    [Utils setContactImage:byText withID:@"ann@example.com"];
    EXPECT_EQ([Utils getContactImageInCache:7], byID);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"ann@example.com"], byText);
    EXPECT_EQ([Utils getContactImageInCache:8], nil);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"bob@example.com"], nil);
    EXPECT_EQ([Utils getContactImageInCacheForKey:nil], nil);
}

TEST_F(ImageCache, EqualNumbersAreEqualKeysWhateverTheirWidth) {
    UIImage* image = picture();
    [Utils setContactImage:image contactId:7];
    EXPECT_EQ([Utils getContactImageInCacheForKey:[NSNumber numberWithLongLong:7]], image);
    EXPECT_EQ([Utils getContactImageInCacheForKey:[NSNumber numberWithShort:7]], image);
    [Utils setContactImage:image withID:[NSNumber numberWithInteger:-3]];
    EXPECT_EQ([Utils getContactImageInCache:-3], image);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"7"], nil);
}

TEST_F(ImageCache, KeepsPicturesAlive) {
    @autoreleasepool {
        [Utils setContactImage:picture() contactId:7];
    }
    EXPECT_EQ([[Utils getContactImageInCache:7] size].width, 2);
}

TEST_F(ImageCache, ALaterPictureReplacesAnEarlierOne) {
    UIImage* later = picture();
    [Utils setContactImage:picture() contactId:7];
    [Utils setContactImage:later contactId:7];
    EXPECT_EQ([Utils getContactImageInCache:7], later);
}

TEST_F(ImageCache, APictureWithoutKeyIsAnErrorAndIsNotStored) {
    [Utils setContactImage:picture() withID:nil];
    EXPECT_EQ(loggedLines("], Image or key (null) is nil."), 1);
    EXPECT_NE(log().find("com.norvex.ZelkaCB: Error => +[ZelkaCBUtils setContactImage:withID:], [Line "),
              std::string::npos);
}

TEST_F(ImageCache, AKeyWithoutPictureIsAnErrorAndChangesNothing) {
    UIImage* image = picture();
    [Utils setContactImage:image withID:@"key"];
    [Utils setContactImage:nil withID:@"key"];
    [Utils setContactImage:nil contactId:12];
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"key"], image);
    EXPECT_EQ([Utils getContactImageInCache:12], nil);
    EXPECT_EQ(loggedLines("], Image or key key is nil."), 1);
    EXPECT_EQ(loggedLines("], Image or key 12 is nil."), 1);
}

TEST_F(ImageCache, RemovalByKeyTellsWhetherThereWasAPicture) {
    [Utils setContactImage:picture() withID:@"key"];
    EXPECT_TRUE([Utils removeImageFromCacheForID:@"key"]);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"key"], nil);
    EXPECT_EQ(loggedLines(" Removed last modified entry from the cache.. key"), 1);
    EXPECT_FALSE([Utils removeImageFromCacheForID:@"key"]);
    EXPECT_FALSE([Utils removeImageFromCacheForID:nil]);
    EXPECT_EQ(loggedLines(" Removed last modified entry from the cache.. key"), 1);
}

TEST_F(ImageCache, RemovalByIDDropsThatPictureOnly) {
    UIImage* other = picture();
    [Utils setContactImage:picture() contactId:7];
    [Utils setContactImage:other contactId:8];
    EXPECT_TRUE([Utils removeImageFromCache:7]);
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
    EXPECT_EQ([Utils getContactImageInCache:8], other);
    EXPECT_EQ(loggedLines("Removed last modified entry from the cache.. 7"), 1);
    EXPECT_FALSE([Utils removeImageFromCache:7]);
}

TEST_F(ImageCache, RemovalOfAnIDBelow1TouchesNothing) {
    UIImage* image = picture();
    [Utils setContactImage:image contactId:0];
    [Utils setContactImage:image contactId:-1];
    EXPECT_FALSE([Utils removeImageFromCache:0]);
    EXPECT_FALSE([Utils removeImageFromCache:-1]);
    EXPECT_EQ([Utils getContactImageInCache:0], image);
    EXPECT_EQ([Utils getContactImageInCache:-1], image);
}

TEST_F(ImageCache, RemovingAvatarsLeavesEverything) {
    UIImage* image = picture();
    [Utils setContactImage:image contactId:7];
    [Utils removeAvatarsFromCache];
    EXPECT_EQ([Utils getContactImageInCache:7], image);
}

TEST_F(ImageCache, ClearingDropsAllPictures) {
    [Utils setContactImage:picture() contactId:7];
    [Utils setContactImage:picture() withID:@"key"];
    [Utils clearImageCache];
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
    EXPECT_EQ([Utils getContactImageInCacheForKey:@"key"], nil);
}

TEST_F(ImageCache, ClearedItCanBeFilledAgain) {
    UIImage* image = picture();
    [Utils clearImageCache];
    [Utils setContactImage:image contactId:7];
    EXPECT_EQ([Utils getContactImageInCache:7], image);
    EXPECT_EQ(madeCache(), 1);
}

TEST_F(ImageCache, ClearingGivesPicturesUp) {
    UIImage* image = [picture() retain];
    const NSUInteger before = [image retainCount];
    @autoreleasepool {
        [Utils setContactImage:image contactId:7];
        EXPECT_EQ([image retainCount], before + 1);
        [Utils clearImageCache];
    }
    EXPECT_EQ([image retainCount], before);
    [image release];
}

}  // namespace

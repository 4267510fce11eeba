#include "tests/support/darwin.h"
#include "tests/support/property_list.h"
#include "tests/unit/hooks/hook_test.h"

// A member with a person of the test's making: the list hooks ask it for three things.
@interface TestPerson : NSObject {
  @public
    int identifier;
    TestPerson* photographed;  // who stands for the photo; nil: itself
    NSData* thumbnail;
}
- (int)recordID;
- (id)preferredPersonForPhoto;
- (NSData*)preferredPhotoThumbnail;
@end
@implementation TestPerson
- (int)recordID {
    return identifier;
}
- (id)preferredPersonForPhoto {
    [hostEvents() appendString:@"photo-asked "];
    return photographed != nil ? photographed : self;
}
- (NSData*)preferredPhotoThumbnail {
    return thumbnail;
}
@end

@interface TestMember : NSObject {
  @public
    TestPerson* person;
}
@end
@implementation TestMember
- (id)person {
    return person;
}
- (NSString*)name {
    return @"Ann Lee";
}
- (NSString*)sectionTitle {
    return @"L";
}
- (BOOL)matchesFoldedText:(NSString*)text {
    return YES;
}
@end

// Shows members, but is no member cell.
@interface StrangeCell : UITableViewCell
- (void)setPerson:(id)person name:(NSString*)name;
@end
@implementation StrangeCell
- (void)setPerson:(id)person name:(NSString*)name {
}
@end

// Tells how often the host laid the row out.
@interface CountingCell : ABNameViewMemberCell
@end
@implementation CountingCell
- (void)layOutName {
    [hostEvents() appendString:@"host-layout "];
    [self contactNameView].frame = CGRectMake(5, 3, 200, 38);
}
@end

// What the host's drawing was asked for last.
struct Drawing {
    CGPoint point;
    float width;
    std::string rest;
};
static Drawing drawn;

// Draws in the cell's place.
@interface NotedDrawing : NSObject
@end
@implementation NotedDrawing
- (CGSize)_drawText:(NSString*)text
          withColor:(UIColor*)color
        shadowColor:(UIColor*)shadow
       shadowOffset:(CGSize)offset
            atPoint:(CGPoint)point
           forWidth:(float)width
           withFont:(UIFont*)font
      lineBreakMode:(NSLineBreakMode)mode {
    char rest[256];
    snprintf(rest, sizeof rest, "%s %d %d %g %g %g %d", [text UTF8String], [color isEqual:[UIColor redColor]],
             [shadow isEqual:[UIColor blueColor]], offset.width, offset.height, [font pointSize], (int)mode);
    drawn = {point, width, rest};
    return CGSizeMake(11, 12);
}
@end

namespace {

using test::frameOf;
using test::kGreen;
using test::kRed;
using test::kYellow;
using test::text;

enum class List { all, found };

class ContactsList : public test::HookTest {
  protected:
    explicit ContactsList(const char* profile = "iphone6-8.4") : HookTest(profile) {}

    void startWithList(const char* bundleIdentifier = "com.apple.springboard") {
        start(bundleIdentifier);
        replaceBundlePicture("recent", kYellow);
        replaceBundlePicture("user_monogram_round", test::kBlue);
        table_ = [[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 375, 480)];
        table_->handedOut = cell_ = [[CountingCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                        reuseIdentifier:@"row"];
        [cell_ setFrame:CGRectMake(0, 0, 375, 44)];
        person_ = [[TestPerson alloc] init];
    }

    // Asks a data source for its row of the person; the cell is the table's.
    UITableViewCell* ask(List list = List::all) {
        TestMember* member = [[[TestMember alloc] init] autorelease];
        member->person = person_;
        NSIndexPath* path = [NSIndexPath indexPathForRow:0 inSection:0];
        if (list == List::all) {
            ABMembersDataSource* source = [[[ABMembersDataSource alloc] init] autorelease];
            [source setMembers:@[ member ]];
            return [source tableView:table_ cellForRowAtIndexPath:path];
        }
        ABMembersFilteredDataSource* source = [[[ABMembersFilteredDataSource alloc] init] autorelease];
        [source setMembers:@[ member ] matchingText:@"a"];
        return [source tableView:table_ cellForRowAtIndexPath:path];
    }

    void give(int contact, const std::string& thumbnail) {
        person_->identifier = contact;
        person_->thumbnail = [test::data(thumbnail) retain];
    }
    UIImageView* picture() { return pictureOf(cell_); }

    NotedTable* table_ = nil;
    CountingCell* cell_ = nil;
    TestPerson* person_ = nil;
};

struct System6Contacts : ContactsList {
    System6Contacts() : ContactsList("iphone4s-6.1") {}
};

class EitherList : public ContactsList, public testing::WithParamInterface<List> {};
INSTANTIATE_TEST_SUITE_P(Lists, EitherList, testing::Values(List::all, List::found));

TEST_P(EitherList, ShowsThePhotoAtOnceAndKeepsIt) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), cell_);
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
    EXPECT_EQ([picture() superview], cell_);
    EXPECT_TRUE(shows(cell_, kRed));
    EXPECT_EQ([Utils getContactImageInCache:7], [picture() image]);
    EXPECT_EQ(queued(), 0);
}

TEST_P(EitherList, ShowsTheCachedPictureWithoutAskingThePerson) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    UIImage* cached = test::redPicture(5, 5, 1);
    [Utils setContactImage:cached contactId:7];
    ask(GetParam());
    EXPECT_EQ([picture() image], cached);
    EXPECT_EQ(happened(), "");
}

TEST_P(EitherList, ShowsThePhotoOfThePersonWhoStandsForIt) {
    startWithList();
    person_->identifier = 7;
    person_->photographed = [[TestPerson alloc] init];
    person_->photographed->identifier = 8;
    person_->photographed->thumbnail = [test::data(test::bmp(8, 8, kGreen)) retain];
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, kGreen));
    EXPECT_NE([Utils getContactImageInCache:7], nil);
    EXPECT_EQ([Utils getContactImageInCache:8], nil);
}

TEST_P(EitherList, ARowWithoutContactShowsTheDefaultPicture) {
    startWithList();
    for (const int none : {0, -1}) {
        give(none, test::bmp(8, 8, kRed));
        ask(GetParam());
        EXPECT_TRUE(shows(cell_, test::kBlue)) << none;
    }
    EXPECT_EQ(happened(), "");
}

TEST_P(EitherList, ARowWithoutPersonShowsTheDefaultPicture) {
    startWithList();
    person_ = nil;
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, test::kBlue));
}

TEST_P(EitherList, SwitchedOffThePictureViewLosesItsImageAndLeavesTheCell) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    UIImageView* before = nil;
    for (NSString* key in @[ @"isShowPicturesOnContacts", @"isZelkaCBEnabled" ]) {
        [settings() loadSettings];
        ask(GetParam());
        ASSERT_NE(picture(), nil);
        before = [[picture() retain] autorelease];
        [settings() setValue:@(NO) forKey:key];
        EXPECT_EQ(ask(GetParam()), cell_);
        EXPECT_EQ(picture(), nil);
        EXPECT_EQ([before image], nil);
    }
}

TEST_P(EitherList, ACellThatIsNoMemberCellIsLeftAlone) {
    startWithList();
    table_->handedOut = [[StrangeCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), table_->handedOut);
    EXPECT_EQ(pictureOf(table_->handedOut), nil);
}

TEST_P(EitherList, EmptyThumbnailCountsAsNone) {
    startWithList();
    const int ann = addNamed("Ann", "Lee");
    give(ann, "");
    ask(GetParam());
    EXPECT_EQ([[picture() image] size].width, 40);
    EXPECT_EQ([Utils getContactImageInCache:ann], [picture() image]);
    EXPECT_EQ(loggedLines("Monograms turned on, monogramText: AL"), GetParam() == List::all ? 1 : 0);
}

TEST_P(EitherList, MonogramsOffThePlaceholderIsShownAndCached) {
    startWithList();
    [settings() setIsMonogramEnabled:NO];
    const int ann = addNamed("Ann", "Lee");
    give(ann, "");
    ask(GetParam());
    EXPECT_TRUE(shows(cell_, kYellow));
    EXPECT_EQ([Utils getContactImageInCache:ann], [picture() image]);
    UIImage* cached = [picture() image];
    [cell_ layoutSubviews];
    EXPECT_EQ([picture() image], cached);
    EXPECT_EQ(loggedLines("Monograms turned off..."), GetParam() == List::all ? 1 : 0);
}

TEST_P(EitherList, APhotoThatCannotBeShapedLeavesTheDefaultPicture) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    Method make = class_getClassMethod([UIImage class], @selector(imageWithCGImage:));
    const IMP before = method_setImplementation(
        make, (IMP) + [](id, SEL, CGImageRef) -> id { return nil; });
    ask(GetParam());
    method_setImplementation(make, before);
    EXPECT_TRUE(shows(cell_, test::kBlue));
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
}

TEST_P(EitherList, OutsideTheServedProcessesTheHostIsLeftAlone) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}, {"ZelkaCBEnabledContacts", true}}));
    startWithList("com.apple.mobilephone");
    ASSERT_TRUE([settings() isShowPicturesOnContacts]);
    give(7, test::bmp(8, 8, kRed));
    EXPECT_EQ(ask(GetParam()), cell_);
    EXPECT_EQ(picture(), nil);
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout ");
    EXPECT_EQ(frameOf([cell_ contactNameView]), "5 3 200 38");
}

TEST_F(System6Contacts, SearchResultsGetNoPicturesWhileTheFullListDoes) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask(List::found);
    EXPECT_EQ(picture(), nil);
    ask(List::all);
    EXPECT_TRUE(shows(cell_, kRed));
    // And the layout hook keeps out of it.
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf([cell_ contactNameView]), "5 3 200 38");
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
}

TEST_F(ContactsList, TheFirstTableServedIsRememberedAndReloadedForEver) {
    startWithList();
    NotedTable* first = table_;
    ask(List::found);
    table_ = [[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 375, 480)];
    table_->handedOut = cell_;
    ask(List::all);
    EXPECT_EQ([table_ retainCount], 1u);
    forget();
    [first release];
    test::deliver("com.norvex.ZelkaCBContactsEnabledNotification");
    EXPECT_EQ(happened(), "reload ");
}

TEST_F(ContactsList, LayoutPutsTheNameBesideThePicture) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask();
    forget();
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout ");
    EXPECT_EQ(frameOf([cell_ contactNameView]), "40 3 320 38");
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
    EXPECT_TRUE(shows(cell_, kRed));
}

TEST_F(ContactsList, LayoutOfAnEditedCellOutsideAnEditedTable) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask();
    [cell_ setEditing:YES animated:NO];
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf([cell_ contactNameView]), "40 3 310 38");
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
    [table_ addSubview:cell_];
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
}

TEST_F(ContactsList, LayoutOfAnEditedCellInAnEditedTable) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask();
    [table_ addSubview:cell_];
    [table_ setEditing:YES animated:NO];
    [cell_ setEditing:YES animated:NO];
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf(picture()), "37 1 40 40");
    [cell_ setEditing:NO animated:NO];
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf(picture()), "2 1 40 40");
}

TEST_F(ContactsList, WithoutNameViewTheContentViewMoves) {
    startWithList();
    ABMemberCell* bare = [[ABMemberCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    [bare setFrame:CGRectMake(0, 0, 375, 44)];
    ASSERT_FALSE([bare respondsToSelector:@selector(contactNameView)]);
    table_->handedOut = bare;
    give(7, test::bmp(8, 8, kRed));
    ask();
    [bare layoutSubviews];
    EXPECT_EQ(frameOf([bare contentView]), "40 0 320 44");
}

TEST_F(ContactsList, LayoutOfAnUncachedContactShowsTheRecentPicture) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask();
    [Utils removeImageFromCache:7];
    forget();
    [cell_ layoutSubviews];
    EXPECT_TRUE(shows(cell_, kYellow));
    EXPECT_EQ(happened(), "host-layout ");
    EXPECT_EQ([Utils getContactImageInCache:7], nil);
}

TEST_F(ContactsList, LayoutOfARowWithoutContactShowsTheRecentPicture) {
    startWithList();
    [Utils setContactImage:test::redPicture(5, 5, 1) contactId:0];
    give(0, "");
    ask();
    [cell_ layoutSubviews];
    EXPECT_TRUE(shows(cell_, kYellow));
}

TEST_F(ContactsList, SwitchedOffTheNextLayoutClearsThePictureAndRunsTheHostsTwice) {
    startWithList();
    give(7, test::bmp(8, 8, kRed));
    ask();
    [settings() setIsShowPicturesOnContacts:NO];
    forget();
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout host-layout ");
    ASSERT_NE(picture(), nil);
    EXPECT_EQ([picture() image], nil);
    EXPECT_EQ(frameOf([cell_ contactNameView]), "5 3 200 38");
    ask();
    EXPECT_EQ(picture(), nil);
}

class NameDrawing : public ContactsList {
  protected:
    void startDrawing(const char* bundleIdentifier = "com.apple.springboard") {
        bootPhone(bundleIdentifier);
        const SEL draw = @selector(_drawText:
                                   withColor:shadowColor:shadowOffset:atPoint:forWidth:withFont:lineBreakMode:);
        method_setImplementation(class_getInstanceMethod([ABMemberCell class], draw),
                                 class_getMethodImplementation([NotedDrawing class], draw));
        loadExtension();
        cell_ = [[CountingCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"row"];
    }

    // The width that the host draws with.
    float widthAt(CGFloat x, float width) {
        const CGSize size = [cell_ _drawText:@"Ann"
                                   withColor:[UIColor redColor]
                                 shadowColor:[UIColor blueColor]
                                shadowOffset:CGSizeMake(1, 2)
                                     atPoint:CGPointMake(x, 9)
                                    forWidth:width
                                    withFont:[UIFont systemFontOfSize:18]
                               lineBreakMode:NSLineBreakByTruncatingMiddle];
        EXPECT_EQ(size.width, 11);
        EXPECT_EQ(size.height, 12);
        EXPECT_EQ(drawn.point.x, x);
        EXPECT_EQ(drawn.point.y, 9);
        EXPECT_EQ(drawn.rest, "Ann 1 1 1 2 18 " + std::to_string((int)NSLineBreakByTruncatingMiddle));
        return drawn.width;
    }
};

TEST_F(NameDrawing, IsWidenedWhereThePictureWouldCutTheNameShort) {
    startDrawing();
    EXPECT_EQ(widthAt(40, 180), 220);
    EXPECT_EQ(widthAt(40, 167), 207);
    EXPECT_EQ(widthAt(40, 206.5f), 246.5f);
    EXPECT_EQ(widthAt(40, 166.9f), 166.9f);
    EXPECT_EQ(widthAt(40, 207), 207);
    EXPECT_EQ(widthAt(0, 207), 247);
    EXPECT_EQ(widthAt(300, 20), 20);
    EXPECT_EQ(widthAt(0, 0), 0);
}

TEST_F(NameDrawing, IsLeftAloneWhileThePicturesAreOff) {
    startDrawing();
    [settings() setIsShowPicturesOnContacts:NO];
    EXPECT_EQ(widthAt(40, 180), 180);
    [settings() loadSettings];
    [settings() setIsZelkaCBEnabled:NO];
    EXPECT_EQ(widthAt(40, 180), 180);
}

TEST_F(NameDrawing, ActsInTheViewService) {
    startDrawing("net.vantrel.callbarviewservice");
    EXPECT_EQ(widthAt(40, 180), 220);
}

TEST_F(NameDrawing, IsLeftAloneInAnotherProcess) {
    root.write(test::kSettingsPath, test::propertyList({{"ZelkaCBEnabled", true}, {"ZelkaCBEnabledContacts", true}}));
    startDrawing("com.apple.mobilephone");
    EXPECT_EQ(widthAt(40, 180), 180);
}

}  // namespace

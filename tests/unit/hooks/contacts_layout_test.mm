#include "simulator/runtime/process/device.h"
#include "tests/support/property_list.h"
#include "tests/unit/hooks/contacts_list_test.h"

// Makes something short-lived each time that it is asked who it is.
@interface LitteringPerson : TestPerson
@end
@implementation LitteringPerson
- (int)recordID {
    makeShortLived();
    return [super recordID];
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

using test::ContactsList;
using test::frameOf;
using test::kRed;
using test::kYellow;
using test::System6Contacts;

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

TEST_F(ContactsList, LayoutLetsGoOfWhatItMadeForAMoment) {
    startWithList();
    person_ = [[LitteringPerson alloc] init];
    give(7, test::bmp(8, 8, kRed));
    @autoreleasepool {
        ask();
    }
    forget();
    @autoreleasepool {
        [cell_ layoutSubviews];
        [hostEvents() appendString:@"returned "];
    }
    EXPECT_EQ(happened(), "host-layout freed returned ");
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

TEST_F(ContactsList, RightToLeftThePictureStaysAtTheLeft) {
    root.setDevice("iphone6-8.4", true);
    startWithList();
    UIApplicationStart(nil, nil);
    ASSERT_EQ([[UIApplication sharedApplication] userInterfaceLayoutDirection], 1);
    give(7, test::bmp(8, 8, kRed));
    ask();
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf([cell_ contactNameView]), "40 3 320 38");
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

TEST_F(System6Contacts, SwitchedOffTheHostLaysOutOnce) {
    startWithList();
    ask();
    [settings() setIsShowPicturesOnContacts:NO];
    forget();
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout ");
}

TEST_F(ContactsList, SwitchedOffTheHostLaysOutOnceInAnotherProcess) {
    startWithList("com.apple.mobilephone");
    ASSERT_FALSE([settings() isShowPicturesOnContacts]);
    [cell_ layoutSubviews];
    EXPECT_EQ(happened(), "host-layout ");
}

struct LandscapeContacts : ContactsList {
    LandscapeContacts() : ContactsList("iphone5s-7.1") {}
};

TEST_F(LandscapeContacts, TheNameIsAsWideAsTheScreenLies) {
    phone::Device device = phone::readDevice(root.path()).value();
    device.orientation = 3;
    ASSERT_TRUE(phone::writeDevice(root.path(), device));
    startWithList();
    UIApplicationStart(nil, nil);
    ASSERT_EQ([[UIScreen mainScreen] bounds].size.width, 320);
    give(7, test::bmp(8, 8, kRed));
    ask();
    [cell_ layoutSubviews];
    EXPECT_EQ(frameOf([cell_ contactNameView]), "40 3 513 38");
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
    // An edge just below the end, which single precision would round up to it.
    EXPECT_EQ(widthAt(246.99999999, 0), 40);
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

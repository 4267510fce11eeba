#include "tests/unit/hooks/recents_test.h"

// A list without CallBar's instance variables, whose rows are the cell that its table hands out.
@interface BareList : UIViewController
- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath;
@end
@implementation BareList
- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath {
    return [tableView dequeueReusableCellWithIdentifier:@"row"];
}
@end

namespace {

using test::frameOf;
using test::kGreen;
using test::kRed;
using test::kYellow;
using test::RecentsList;

TEST_F(RecentsList, ACellOfAnotherClassPassesThroughUnchanged) {
    startWithList();
    controller_->cell = [[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
    const NSUInteger views = [[cell() subviews] count];
    show(@[ entry(uidCall(1)) ]);
    EXPECT_EQ(ask(), controller_->cell);
    EXPECT_EQ([[cell() subviews] count], views);
    EXPECT_EQ(picture(), nil);
}

TEST_F(RecentsList, AListWithoutCellIsNoHarm) {
    startWithList();
    controller_->cell = nil;
    show(@[ entry(uidCall(1)) ]);
    EXPECT_EQ(ask(), nil);
}

TEST_F(RecentsList, SwitchedOffThePictureViewLosesItsImageAndLeavesTheCell) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall(ann));
    settle();
    UIImageView* before = [[picture() retain] autorelease];
    ASSERT_NE([before image], nil);
    [settings() setIsShowPicturesOnRecents:NO];
    EXPECT_EQ(ask(), cell());
    EXPECT_EQ(picture(), nil);
    EXPECT_EQ([before superview], nil);
    EXPECT_EQ([before image], nil);
}

TEST_F(RecentsList, SwitchedOnAgainANewPictureViewStandsInTheCellItself) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall(ann));
    UIImageView* before = [[picture() retain] autorelease];
    EXPECT_EQ([before superview], [cell() contentView]);
    [settings() setIsZelkaCBEnabled:NO];
    ask();
    [settings() setIsZelkaCBEnabled:YES];
    ask();
    ASSERT_NE(picture(), nil);
    EXPECT_NE(picture(), before);
    EXPECT_EQ([picture() superview], cell());
    EXPECT_EQ(frameOf(picture()), "2 2 40 40");
}

TEST_F(RecentsList, ASecondRequestKeepsTheCellsPictureView) {
    startWithList();
    showRow(uidCall(addWithPhoto(kRed)));
    UIImageView* before = picture();
    ask();
    EXPECT_EQ(picture(), before);
}

TEST_F(RecentsList, RightToLeftThePictureStandsBeforeTheAccessory) {
    root.setDevice("iphone6-8.4", true);
    startWithList();
    UIApplicationStart(nil, nil);
    [cell() setAccessoryType:UITableViewCellAccessoryDetailButton];
    [[cell() _defaultAccessoryView] setFrame:CGRectMake(300, 10, 22, 22)];
    showRow(uidCall(addWithPhoto(kRed)));
    EXPECT_EQ(frameOf(picture()), "260 2 40 40");
}

TEST_F(RecentsList, OnlyMissedShowsTheMissedEntries) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    controller_->onlyMissed = YES;
    controller_->_missedEntries = [@[ entry(uidCall(bob)) ] retain];
    show(@[ entry(uidCall(ann)) ]);
    ask();
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, WhatStandsBesideTheMissedFlagIsNotReadAsTheFlag) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    memset(controller_->neighbour, 0xFF, sizeof controller_->neighbour);
    showRow(uidCall(ann));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

TEST_F(RecentsList, ARowBehindTheLastMissedEntryKeepsItsPicture) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    controller_->onlyMissed = YES;
    controller_->_missedEntries = [@[ entry(uidCall(ann)), entry(uidCall(ann)), entry(uidCall(ann)) ] retain];
    show(@[ entry(nil), entry(nil), entry(nil), entry(nil) ]);
    ask();
    UIImage* marker = test::redPicture(4, 4, 1);
    [picture() setImage:marker];
    EXPECT_EQ(ask(3), cell());
    EXPECT_EQ([picture() image], marker);
    settle();
}

TEST_F(RecentsList, AListWithoutEntriesKeepsThePicture) {
    startWithList();
    ask();
    EXPECT_EQ([picture() image], nil);
    EXPECT_EQ(queued(), 0);
}

TEST_F(RecentsList, ARowWithoutEntryHasAPictureViewAllTheSame) {
    startWithList();
    [picture() removeFromSuperview];
    ask();
    ASSERT_NE(picture(), nil);
    EXPECT_EQ([picture() superview], cell());
    EXPECT_EQ(frameOf(picture()), "2 2 40 40");
}

TEST_F(RecentsList, AListWithoutTheHostsVariablesHasNoEntries) {
    bootPhone("com.apple.springboard");
    const SEL select = @selector(tableView:cellForRowAtIndexPath:);
    Method host = class_getInstanceMethod([CallBarABViewController class], select);
    Method bare = class_getInstanceMethod([BareList class], select);
    method_setImplementation(host, method_getImplementation(bare));
    loadExtension();
    method_setImplementation(bare, method_getImplementation(host));
    NotedTable* table = [[[NotedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 480)] autorelease];
    table->handedOut = newCell();
    BareList* list = [[[BareList alloc] init] autorelease];
    EXPECT_EQ([list tableView:table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]],
              table -> handedOut);
    EXPECT_NE(pictureOf(table->handedOut), nil);
    EXPECT_EQ([pictureOf(table->handedOut) image], nil);
    EXPECT_EQ(queued(), 0);
}

TEST_F(RecentsList, ANegativeRowIsBehindEveryEntry) {
    startWithList();
    show(@[ entry(uidCall(addWithPhoto(kRed))) ]);
    ask(-1);
    EXPECT_EQ([picture() image], nil);
}

TEST_F(RecentsList, CallThatAnswersBothUidAndRecordIdUsesUid) {
    startWithList();
    addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    BothCall* call = [[[BothCall alloc] init] autorelease];
    call->identifier = bob;
    showRow(call);
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
    EXPECT_EQ(happened(), "");
}

TEST_F(RecentsList, CallThatAnswersARecordIdAloneUsesIt) {
    startWithList();
    addWithPhoto(kRed);
    const int bob = addWithPhoto(kGreen, "Bob", "Stone");
    RecordCall* call = [[[RecordCall alloc] init] autorelease];
    call->number = [[NSNumber alloc] initWithInt:bob];
    showRow(call);
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, CallWithANilRecordIdHasNoContact) {
    startWithList();
    showRow([[[RecordCall alloc] init] autorelease]);
    EXPECT_NE([picture() image], nil);
    EXPECT_EQ(queued(), 0);
}

// A number with an upper half, which 32-bit phones have no room for.
NSInteger wide(int64_t upper, int lower) { return static_cast<NSInteger>((upper << 32) + lower); }

TEST_F(RecentsList, TheLowHalfOfAWideUidIsTheContact) {
    startWithList();
    const int ann = addWithPhoto(kRed);
    showRow(uidCall(wide(5, ann)));
    settle();
    EXPECT_TRUE(shows(cell(), kRed));
}

TEST_F(RecentsList, CallWithoutIdIsFoundByItsAddress) {
    startWithList();
    maker::Person ann;
    ann.first = "Ann";
    ann.emails = {{"ann@example.com", ""}};
    const int contact = add(ann);
    setThumbnail(contact, test::bmp(8, 8, kGreen));
    showRow([[[NSObject alloc] init] autorelease], @"ann@example.com");
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, AnEntryWithoutCallsIsFoundByItsAddress) {
    startWithList();
    maker::Person ann;
    ann.first = "Ann";
    ann.phones = {{"+1 212 555 0142", ""}};
    const int contact = add(ann);
    setThumbnail(contact, test::bmp(8, 8, kGreen));
    showRow(nil, @"(212) 555-0142");
    settle();
    EXPECT_TRUE(shows(cell(), kGreen));
}

TEST_F(RecentsList, AnUnknownAddressShowsTheGenericMonogramAndQueuesNothing) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    addNamed("Ann", "Lee");
    showRow([[[NSObject alloc] init] autorelease], @"+1 646 555 0199");
    EXPECT_TRUE(shows(cell(), kYellow));
    EXPECT_EQ(queued(), 0);
    EXPECT_EQ(phone::pendingWork(), 0);
}

TEST_F(RecentsList, ContactsBelowOneShowTheGenericMonogram) {
    startWithList();
    replaceBundlePicture("user_monogram_round", kYellow);
    for (const NSInteger none : {NSInteger{0}, NSInteger{-1}, wide(1, 0)}) {
        [picture() setImage:nil];
        showRow(uidCall(none));
        EXPECT_TRUE(shows(cell(), kYellow)) << none;
        EXPECT_EQ(queued(), 0);
    }
}

}  // namespace

// The Contacts list with a member, a table and a cell of the tests' own making.
#pragma once

#include "tests/unit/hooks/hook_test.h"

// A person whom the list hooks ask for three things.
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

// A member with such a person.
@interface TestMember : NSObject {
  @public
    TestPerson* person;
}
@end

// Shows members, but is no member cell.
@interface StrangeCell : UITableViewCell
- (void)setPerson:(id)person name:(NSString*)name;
@end

// Tells how often the host laid the row out.
@interface CountingCell : ABNameViewMemberCell
@end

namespace test {

enum class List { all, found };
inline void PrintTo(List list, std::ostream* out) { *out << (list == List::all ? "all" : "found"); }

class ContactsList : public HookTest {
  protected:
    explicit ContactsList(const char* profile = "iphone6-8.4") : HookTest(profile) {}

    void startWithList(const char* bundleIdentifier = "com.apple.springboard") {
        start(bundleIdentifier);
        replaceBundlePicture("recent", kYellow);
        replaceBundlePicture("user_monogram_round", kBlue);
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
        person_->thumbnail = [data(thumbnail) retain];
    }
    UIImageView* picture() { return pictureOf(cell_); }

    NotedTable* table_ = nil;
    CountingCell* cell_ = nil;
    TestPerson* person_ = nil;
};

struct System6Contacts : ContactsList {
    System6Contacts() : ContactsList("iphone4s-6.1") {}
};

}  // namespace test

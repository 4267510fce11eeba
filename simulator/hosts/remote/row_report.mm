#import "simulator/hosts/remote/row_report.h"

#import "simulator/hosts/callbar/CallBarABViewController.h"
#import "simulator/hosts/callbar/CallBarCall.h"
#import "simulator/hosts/callbar/CallBarControllerModern.h"
#import "simulator/hosts/callbar/CallBarFavoritesStrip.h"
#import "simulator/hosts/callbar/CallBarTableViewTransparentCell.h"
#import "simulator/hosts/remote/picture_source.h"
#import "simulator/hosts/remote/pixels.h"

namespace hosts {
namespace {

// By this tag alone what is added to a row differs from the row's own views.
constexpr NSInteger kPictureTag = 3232;

NSNumber* number(double value) { return [NSNumber numberWithDouble:value]; }
NSNumber* flag(bool value) { return [NSNumber numberWithBool:value]; }

NSArray* rectReport(CGRect rect) {
    return @[ number(rect.origin.x), number(rect.origin.y), number(rect.size.width), number(rect.size.height) ];
}

// In the cell's coordinates; NSNull for a view that is not there, hidden or outside the cell.
id frameIn(UIView* cell, UIView* view) {
    if (view == nil || [view isHidden] || ![view isDescendantOfView:cell]) return [NSNull null];
    return rectReport([cell convertRect:[view bounds] fromView:view]);
}

NSString* centreColour(const Pixels& pixels) {
    const uint8_t* middle = pixels.at(pixels.width / 2, pixels.height / 2);
    return [NSString stringWithFormat:@"#%02x%02x%02x", middle[0], middle[1], middle[2]];
}

id textOrNull(NSString* text) { return text != nil ? (id)text : (id)[NSNull null]; }

// nil for a list without titles.
NSString* sectionTitle(UITableView* table, NSInteger section) {
    id<UITableViewDataSource> source = [table dataSource];
    if (![source respondsToSelector:@selector(tableView:titleForHeaderInSection:)]) return nil;
    return [source tableView:table titleForHeaderInSection:section];
}

NSMutableDictionary* commonReport(UITableView* table, UITableViewCell* cell, NSIndexPath* path, int contact,
                                  bool withSource) {
    UIImageView* pictureView = (UIImageView*)[cell viewWithTag:kPictureTag];
    NSMutableDictionary* report = [NSMutableDictionary dictionary];
    [report setObject:[NSNumber numberWithInteger:[path section]] forKey:@"section"];
    [report setObject:textOrNull(sectionTitle(table, [path section])) forKey:@"sectionTitle"];
    [report setObject:[NSNumber numberWithInteger:[path row]] forKey:@"row"];
    [report setObject:[NSNumber numberWithInt:contact] forKey:@"contact"];
    [report setObject:flag([cell isEditing]) forKey:@"editing"];
    [report setObject:rectReport([table rectForRowAtIndexPath:path]) forKey:@"frame"];
    [report setObject:flag(pictureView != nil) forKey:@"hasPictureView"];
    [report setObject:flag([pictureView isDescendantOfView:[cell contentView]]) forKey:@"pictureInContentView"];
    [report setObject:pictureReport([pictureView image], contact, withSource) forKey:@"picture"];
    return report;
}

void describeCall(NSMutableDictionary* report, CallBarTableViewTransparentCell* cell, NSArray* calls) {
    CallBarCall* call = [calls objectAtIndex:0];
    [report addEntriesFromDictionary:@{
        @"name" : textOrNull([[cell nameLabel] text]),
        @"detail" : textOrNull([[cell kindLabel] text]),
        @"date" : textOrNull([[cell dateLabel] text]),
        @"address" : [call address],
        @"calls" : [NSNumber numberWithUnsignedInteger:[calls count]],
        @"missed" : flag([call isMissed]),
        @"outgoing" : flag([call isOutgoing]),
        @"answers" : [call respondsToSelector:@selector(uid)]      ? @"uid"
        : [call respondsToSelector:@selector(addressBookRecordId)] ? @"addressBookRecordId"
                                                                   : @"neither",
        @"answersCallerName" : flag([call respondsToSelector:@selector(callerName)]),
        @"frames" : @{
            @"picture" : frameIn(cell, [cell viewWithTag:kPictureTag]),
            @"name" : frameIn(cell, [cell nameLabel]),
            @"detail" : frameIn(cell, [cell kindLabel]),
            @"date" : frameIn(cell, [cell dateLabel]),
            @"icon" : frameIn(cell, [cell typeIcon])
        }
    }];
}

void describeMember(NSMutableDictionary* report, ABMemberCell* cell) {
    [report addEntriesFromDictionary:@{
        @"name" : textOrNull([cell name]),
        @"frames" : @{
            @"picture" : frameIn(cell, [cell viewWithTag:kPictureTag]),
            @"name" : frameIn(cell, [cell nameCanvas]),
            @"detail" : [NSNull null],
            @"date" : [NSNull null],
            @"icon" : [NSNull null]
        }
    }];
}

NSArray* recentsReports(CallBarABViewController* recents, bool withSources) {
    NSMutableArray* reports = [NSMutableArray array];
    UITableView* table = [recents tableView];
    for (CallBarTableViewTransparentCell* cell in [table visibleCells]) {
        NSIndexPath* path = [table indexPathForCell:cell];
        NSArray* entries = [recents shownEntries];
        if ((NSUInteger)[path row] >= [entries count]) continue;
        NSArray* calls = [[entries objectAtIndex:(NSUInteger)[path row]] objectForKey:@"calls"];
        NSMutableDictionary* report =
            commonReport(table, cell, path, [[calls objectAtIndex:0] contactIdentifier], withSources);
        describeCall(report, cell, calls);
        [reports addObject:report];
    }
    return reports;
}

NSArray* membersReports(ABMembersViewController* members, bool withSources) {
    NSMutableArray* reports = [NSMutableArray array];
    UITableView* table = [members tableView];
    for (ABMemberCell* cell in [table visibleCells]) {
        const int contact = [cell person] != nil ? [[cell person] recordID] : kABRecordInvalidID;
        NSMutableDictionary* report = commonReport(table, cell, [table indexPathForCell:cell], contact, withSources);
        describeMember(report, cell);
        [reports addObject:report];
    }
    return reports;
}

}  // namespace

id pictureReport(UIImage* picture, int contact, bool withSource) {
    if (picture == nil) return [NSNull null];
    const Pixels pixels = pixelsOf(picture);
    NSMutableDictionary* report = [NSMutableDictionary dictionary];
    [report addEntriesFromDictionary:@{
        @"size" : @[ number([picture size].width), number([picture size].height) ],
        @"scale" : number([picture scale]),
        @"pixels" : @[ number(static_cast<double>(pixels.width)), number(static_cast<double>(pixels.height)) ],
        @"hash" : [NSString stringWithUTF8String:contentHash(pixels).c_str()],
        @"look" : [NSString stringWithUTF8String:coarseLook(pixels).c_str()],
        @"centre" : centreColour(pixels),
        @"corner" : [NSNumber numberWithInt:pixels.at(pixels.width / 10, pixels.height / 10)[3]]
    }];
    if (!withSource) return report;
    const PictureSource source = sourceOfPicture(picture, contact);
    [report addEntriesFromDictionary:@{
        @"source" : [NSString stringWithUTF8String:source.kind.c_str()],
        @"sourceContact" : [NSNumber numberWithInt:source.contact],
        @"colour" : [NSString stringWithUTF8String:source.colour.c_str()]
    }];
    return report;
}

NSArray* rowReports(CallBarControllerModern* controller, bool withSources) {
    if ([controller shownController] == [controller recentsController])
        return recentsReports([controller recentsController], withSources);
    if ([controller shownController] == [controller membersController])
        return membersReports([controller membersController], withSources);
    return @[];
}

NSArray* favoriteReports(CallBarControllerModern* controller, bool withSources) {
    NSMutableArray* reports = [NSMutableArray array];
    for (CallBarFavoriteButton* button in [controller favoritesButtons]) {
        [reports addObject:@{
            @"name" : textOrNull([button titleForState:UIControlStateNormal]),
            @"contact" : [NSNumber numberWithInt:[button contactIdentifier]],
            @"frame" : rectReport([button frame]),
            @"picture" :
                pictureReport([button imageForState:UIControlStateNormal], [button contactIdentifier], withSources)
        }];
    }
    return reports;
}

}  // namespace hosts

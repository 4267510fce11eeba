// CallBar's classes and SpringBoard as far as the library touches them, each method noting that it was asked. A test
// decides what they hold and which cell they answer.
#pragma once

#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "simulator/frameworks/objc/runtime.h"
#include "simulator/frameworks/uikit/uikit.h"

// What happened, in order, as words each followed by a blank. Made by the first who asks.
NSMutableString* hostEvents(void);

// Notes "freed" when it goes.
@interface FreedWitness : NSObject
@end

// Makes a witness that nobody keeps.
void makeShortLived(void);

@interface SpringBoard : NSObject
- (void)applicationDidFinishLaunching:(id)application;
@end

@interface CallBarControllerModern : UIViewController {
  @public
    NSString* postedWhileLoading;  // the notification that its view's loading posts, if any
    ABMonogrammer* generator;
}
- (void)toggleFavorites:(id)sender;
- (void)toggleRecents:(id)sender;
- (void)toggleContacts:(id)sender;
- (ABMonogrammer*)monogrammer;
- (void)cleanupFavoritesButtons;
- (void)resetFavorites;
@end

@interface CallBarFavoritesViewController : UIViewController
@end

@interface CallBarTableViewTransparentCell : UITableViewCell
@end

@interface CallBarABViewController : UIViewController {
  @public
    NSString* postedWhileLoading;  // as above
    BOOL onlyMissed;
    char neighbour[7];  // what stands beside the flag is not the flag's
    NSArray* _missedEntries;
    NSArray* _allEntries;
    UITableViewCell* cell;  // what the host answers for every row
    UITableView* table;
}
- (UITableView*)tableView;
- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath;
@end

// A table that notes reloads and hands out the cell it was given.
@interface NotedTable : UITableView {
  @public
    UITableViewCell* handedOut;
}
@end

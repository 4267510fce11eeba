#pragma once

#include "simulator/frameworks/preferences/PSSpecifier.h"
#include "simulator/frameworks/uikit/uikit.h"

// What a page of the Settings app is, and where a row's value comes from when the page does not say otherwise: from
// the file of the specifier's "defaults" by its "key", through the preferences service where the phone has one
// (preference_values.h).
@interface PSViewController : UIViewController {
    PSSpecifier* _specifier;
}

@property (nonatomic, retain) PSSpecifier* specifier;  // the row that led here; nil for the first page

- (id)readPreferenceValue:(PSSpecifier*)specifier;  // the property "default" when nothing is stored; +0
- (void)setPreferenceValue:(id)value specifier:(PSSpecifier*)specifier;

@end

// A page with a grouped table, one row a specifier. A subclass overrides -specifiers, which fills _specifiers once.
@interface PSListController : PSViewController <UITableViewDataSource, UITableViewDelegate> {
    NSArray* _specifiers;
    UITableView* _table;
}

- (NSArray*)specifiers;  // +0
- (void)setSpecifiers:(NSArray*)specifiers;
// Those of NAME.plist in -bundle, with the texts of table NAME; sets the title, too. Raises when there is no such
// list. +0.
- (NSArray*)loadSpecifiersFromPlistName:(NSString*)name target:(id)target;
- (NSBundle*)bundle;  // the class's own; +0

- (UITableView*)table;                                          // nil before the view is loaded; +0
- (PSSpecifier*)specifierForID:(NSString*)identifier;           // nil when there is none; +0
- (PSSpecifier*)specifierAtIndexPath:(NSIndexPath*)indexPath;   // +0
- (NSIndexPath*)indexPathForSpecifier:(PSSpecifier*)specifier;  // nil for a group, and for none of this list; +0

// The page that a PSLinkCell leads to, +0; raises when its "detail" is no class.
- (UIViewController*)controllerForSpecifier:(PSSpecifier*)specifier;

// Shows it as it is now; a specifier of no row is left alone.
- (void)reloadSpecifier:(PSSpecifier*)specifier;
- (void)reloadSpecifierID:(NSString*)identifier;
// Has -specifiers make all of them anew.
- (void)reloadSpecifiers;

@end

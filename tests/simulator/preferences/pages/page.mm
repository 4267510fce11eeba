// The page of a preference bundle of the tests' own, whose principal class the Settings app shows.
#include "simulator/frameworks/preferences/preferences.h"

@interface TestPreviewCell : PSTableCell
@end

@implementation TestPreviewCell

- (void)refreshCellContentsWithSpecifier:(PSSpecifier*)specifier {
    [super refreshCellContentsWithSpecifier:specifier];
    [[self textLabel] setText:@"Preview"];
}

@end

@interface TestPageController : PSListController <UIAlertViewDelegate> {
    BOOL _soundIsOn;
    NSInteger _pressed;
}
@end

@implementation TestPageController

- (instancetype)init {
    self = [super init];
    if (self) _pressed = -1;
    return self;
}

- (NSArray*)specifiers {
    if (!_specifiers) _specifiers = [[self loadSpecifiersFromPlistName:@"Page" target:self] retain];
    return _specifiers;
}

- (id)readPreferenceValue:(PSSpecifier*)specifier {
    return [NSNumber numberWithBool:_soundIsOn];
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier*)specifier {
    _soundIsOn = [value boolValue];
    PSSpecifier* volume = [self specifierForID:@"volume"];
    [volume setProperty:[NSNumber numberWithBool:_soundIsOn] forKey:@"enabled"];
    [self reloadSpecifier:volume];
}

- (id)volumeOf:(PSSpecifier*)specifier {
    return _pressed < 0 ? @"loud" : [NSString stringWithFormat:@"pressed %ld", (long)_pressed];
}

- (void)ask:(PSSpecifier*)specifier {
    UIAlertView* alert = [[UIAlertView alloc] initWithTitle:[specifier name]
                                                    message:[[self bundle] localizedStringForKey:@"question"
                                                                                           value:nil
                                                                                           table:@"Page"]
                                                   delegate:self
                                          cancelButtonTitle:@"No"
                                          otherButtonTitles:@"Yes", nil];
    [alert show];
    [alert release];
}

- (void)alertView:(UIAlertView*)alertView clickedButtonAtIndex:(NSInteger)buttonIndex {
    _pressed = buttonIndex;
    [self reloadSpecifiers];
}

@end

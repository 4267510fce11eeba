#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// A favourite's button: a round picture with the name beneath.
@interface CallBarFavoriteButton : UIButton {
  @private
    int _contact;
    UIView* _deleteControl;
}

+ (CallBarFavoriteButton*)buttonWithPicture:(UIImage*)picture name:(NSString*)name contact:(int)contact;  // +0

@property (nonatomic, readonly) int contactIdentifier;  // or -1
// Shows a delete control at the picture's corner while YES.
- (void)setEditing:(BOOL)editing;

@end

// Favourites in rows of as many as fit, from the leading edge.
@interface CallBarFavoritesStrip : UIView {
  @private
    NSMutableArray* _buttons;
    BOOL _editing;
}

- (NSArray*)buttons;  // +0
- (void)addButton:(CallBarFavoriteButton*)button;
- (void)removeAllButtons;
- (void)setEditing:(BOOL)editing;

@end

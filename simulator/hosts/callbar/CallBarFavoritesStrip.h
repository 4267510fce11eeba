#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// A favourite's button: a round picture with the name beneath.
@interface CallBarFavoriteButton : UIButton {
  @private
    int _contact;
}

+ (CallBarFavoriteButton*)buttonWithPicture:(UIImage*)picture name:(NSString*)name contact:(int)contact;  // +0

@property (nonatomic, readonly) int contactIdentifier;  // or -1

@end

// Favourites in rows of as many as fit, from the leading edge.
@interface CallBarFavoritesStrip : UIView {
  @private
    NSMutableArray* _buttons;
}

- (NSArray*)buttons;  // +0
- (void)addButton:(CallBarFavoriteButton*)button;
- (void)removeAllButtons;

@end

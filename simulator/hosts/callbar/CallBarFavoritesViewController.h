#pragma once

#include "simulator/frameworks/uikit/uikit.h"

// The Favorites list: an empty page on which CallBar's main controller lays its strip of buttons.
@interface CallBarFavoritesViewController : UIViewController {
  @private
    UILabel* _emptyLabel;
}

// Says "No Favorites" in the middle of the page, or nothing.
- (void)setShowsNoFavorites:(BOOL)empty;

@end

#pragma once

#include "simulator/frameworks/contacts_ui/contacts_ui.h"
#include "simulator/frameworks/uikit/uikit.h"

@class CallBarABViewController, CallBarFavoritesViewController, CallBarFavoritesStrip;

// CallBar's screen: a title bar, one of three lists, and the buttons that choose the list.
@interface CallBarControllerModern : UIViewController {
  @private
    UIView* _titleBar;
    UILabel* _titleLabel;
    UILabel* _editLabel;
    UIView* _buttonBar;
    UIButton* _favoritesButton;
    UIButton* _recentsButton;
    UIButton* _contactsButton;
    CallBarFavoritesViewController* _favoritesController;
    CallBarABViewController* _recentsController;
    ABMembersViewController* _membersController;
    UIViewController* _shownController;
    CallBarFavoritesStrip* _favoritesStrip;
    ABMonogrammer* _monogrammer;
}

@property (nonatomic, readonly) UIButton* favoritesButton;                   // +0
@property (nonatomic, readonly) UIButton* recentsButton;                     // +0
@property (nonatomic, readonly) UIButton* contactsButton;                    // +0
@property (nonatomic, readonly) CallBarABViewController* recentsController;  // +0
@property (nonatomic, readonly) ABMembersViewController* membersController;  // +0
@property (nonatomic, readonly) UIViewController* shownController;           // +0
@property (nonatomic, readonly) NSArray* favoritesButtons;                   // the strip's, in order; +0

// The generator of CallBar's own pictures, made on first use. +0.
- (ABMonogrammer*)monogrammer;

// What the three buttons send.
- (void)toggleFavorites:(UIButton*)sender;
- (void)toggleRecents:(UIButton*)sender;
- (void)toggleContacts:(UIButton*)sender;

// Takes all buttons off the favourites strip; lays one on it for each of the phone's favourites.
- (void)cleanupFavoritesButtons;
- (void)resetFavorites;

// The title bar's text for what is shown.
- (void)updateTitle;

@end

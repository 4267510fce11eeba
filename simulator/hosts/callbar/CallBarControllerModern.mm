#import "simulator/hosts/callbar/CallBarControllerModern.h"

#import "simulator/frameworks/contacts_ui/reading_direction.h"
#import "simulator/hosts/callbar/CallBarABViewController.h"
#import "simulator/hosts/callbar/CallBarDrawing.h"
#import "simulator/hosts/callbar/CallBarFavorites.h"
#import "simulator/hosts/callbar/CallBarFavoritesStrip.h"
#import "simulator/hosts/callbar/CallBarFavoritesViewController.h"

namespace {

constexpr CGFloat kTitleBarHeight = 64;
constexpr CGFloat kStatusBarHeight = 20;
constexpr CGFloat kButtonBarHeight = 49;
constexpr CGFloat kPictureDiameter = 60;

// A bar in the system's near-white, with a hairline at one edge.
UIView* makeBar() {
    UIView* bar = [[UIView alloc] initWithFrame:CGRectZero];
    [bar setBackgroundColor:[UIColor colorWithWhite:0.97 alpha:1]];
    return bar;
}

UILabel* makeLabel(CGFloat size, bool bold) {
    UILabel* label = [[UILabel alloc] initWithFrame:CGRectZero];
    [label setFont:bold ? [UIFont boldSystemFontOfSize:size] : [UIFont systemFontOfSize:size]];
    return label;
}

}  // namespace

@implementation CallBarControllerModern

- (void)dealloc {
    [_titleBar release];
    [_titleLabel release];
    [_editLabel release];
    [_buttonBar release];
    [_favoritesButton release];
    [_recentsButton release];
    [_contactsButton release];
    [_favoritesController release];
    [_recentsController release];
    [_membersController release];
    [_favoritesStrip release];
    [_monogrammer release];
    [super dealloc];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [[self view] setBackgroundColor:[UIColor whiteColor]];
    [self makeLists];
    [self makeBars];
    [self resetFavorites];
    [_recentsButton setSelected:YES];
    [self showController:_recentsController];
}

- (void)makeLists {
    _favoritesController = [[CallBarFavoritesViewController alloc] init];
    _recentsController = [[CallBarABViewController alloc] initWithStyle:UITableViewStylePlain];
    _membersController = [[ABMembersViewController alloc] init];
    for (UIViewController* list in @[ _favoritesController, _recentsController, _membersController ]) {
        [self addChildViewController:list];
        [list didMoveToParentViewController:self];
    }
    _favoritesStrip = [[CallBarFavoritesStrip alloc] initWithFrame:CGRectZero];
    [[_favoritesController view] addSubview:_favoritesStrip];
}

- (void)makeBars {
    _titleBar = makeBar();
    _titleLabel = makeLabel(17, true);
    [_titleLabel setTextAlignment:NSTextAlignmentCenter];
    _editLabel = makeLabel(17, false);
    [_editLabel setTextColor:CallBarTintColor()];
    [_titleBar addSubview:_titleLabel];
    [_titleBar addSubview:_editLabel];
    [[self view] addSubview:_titleBar];
    _buttonBar = makeBar();
    _favoritesButton = [[self addButton:@"Favorites" action:@selector(toggleFavorites:)] retain];
    _recentsButton = [[self addButton:@"Recents" action:@selector(toggleRecents:)] retain];
    _contactsButton = [[self addButton:@"Contacts" action:@selector(toggleContacts:)] retain];
    [[self view] addSubview:_buttonBar];
}

- (UIButton*)addButton:(NSString*)title action:(SEL)action {
    UIButton* button = [UIButton buttonWithType:UIButtonTypeCustom];
    [button setTitle:title forState:UIControlStateNormal];
    [button setTitleColor:CallBarSecondaryTextColor() forState:UIControlStateNormal];
    [button setTitleColor:CallBarTintColor() forState:UIControlStateSelected];
    [[button titleLabel] setFont:[UIFont systemFontOfSize:14]];
    [button addTarget:self action:action forControlEvents:UIControlEventTouchUpInside];
    [_buttonBar addSubview:button];
    return button;
}

- (UIButton*)favoritesButton {
    return _favoritesButton;
}

- (UIButton*)recentsButton {
    return _recentsButton;
}

- (UIButton*)contactsButton {
    return _contactsButton;
}

- (CallBarABViewController*)recentsController {
    return _recentsController;
}

- (ABMembersViewController*)membersController {
    return _membersController;
}

- (UIViewController*)shownController {
    return _shownController;
}

- (NSArray*)favoritesButtons {
    return [_favoritesStrip buttons];
}

- (ABMonogrammer*)monogrammer {
    if (_monogrammer == nil) _monogrammer = [[ABMonogrammer alloc] initWithDiameter:kPictureDiameter];
    return _monogrammer;
}

- (void)toggleFavorites:(UIButton*)sender {
    [self cleanupFavoritesButtons];
    [self resetFavorites];
    [self selectButton:sender];
    [self showController:_favoritesController];
}

- (void)toggleRecents:(UIButton*)sender {
    [self selectButton:sender];
    [self showController:_recentsController];
}

- (void)toggleContacts:(UIButton*)sender {
    [self selectButton:sender];
    [self showController:_membersController];
}

- (void)selectButton:(UIButton*)chosen {
    for (UIButton* button in @[ _favoritesButton, _recentsButton, _contactsButton ])
        [button setSelected:button == chosen];
}

- (void)showController:(UIViewController*)controller {
    if (controller != _shownController) {
        UIViewController* before = _shownController;
        [before setEditing:NO animated:NO];
        [before beginAppearanceTransition:NO animated:NO];
        [controller beginAppearanceTransition:YES animated:NO];
        [[before view] removeFromSuperview];
        [[self view] insertSubview:[controller view] atIndex:0];
        _shownController = controller;
        [self layOutLists];
        [before endAppearanceTransition];
        [controller endAppearanceTransition];
    }
    [self updateTitle];
}

- (void)updateTitle {
    NSString* title = _shownController == _favoritesController ? @"Favorites"
                      : _shownController == _membersController ? @"All Contacts"
                      : [_recentsController onlyMissed]        ? @"Missed"
                                                               : @"Recents";
    [_titleLabel setText:title];
    [_favoritesStrip setEditing:[_favoritesController isEditing]];
    [_editLabel setText:[_shownController isEditing] ? @"Done" : @"Edit"];
    [[self view] setNeedsLayout];
}

- (void)cleanupFavoritesButtons {
    [_favoritesStrip removeAllButtons];
}

- (void)resetFavorites {
    NSArray* favorites = CallBarReadFavorites();
    for (CallBarFavorite* favorite in favorites) {
        UIImage* picture = [self pictureOfFavorite:favorite];
        [_favoritesStrip addButton:[CallBarFavoriteButton buttonWithPicture:picture
                                                                       name:[favorite name]
                                                                    contact:[favorite contactIdentifier]]];
    }
    [_favoritesController setShowsNoFavorites:[favorites count] == 0];
}

// A favourite whose contact has been deleted keeps its name, so it is drawn by initials. +0.
- (UIImage*)pictureOfFavorite:(CallBarFavorite*)favorite {
    ABUIPerson* person = [ABUIPerson personWithRecordID:[favorite contactIdentifier]];
    if (person == nil) {
        return [[[self monogrammer] _copyMonogramWithInitials:ABUIInitialsOfName([favorite name])] autorelease];
    }
    BOOL isPersonImage = NO;
    return [[[self monogrammer] monogramForPerson:[person record] isPersonImage:&isPersonImage] autorelease];
}

- (void)viewWillLayoutSubviews {
    [super viewWillLayoutSubviews];
    const CGSize size = [[self view] bounds].size;
    [_titleBar setFrame:CGRectMake(0, 0, size.width, kTitleBarHeight)];
    const CGFloat textHeight = kTitleBarHeight - kStatusBarHeight;
    [_titleLabel setFrame:CGRectMake(0, kStatusBarHeight, size.width, textHeight)];
    [_editLabel sizeToFit];
    const CGFloat editWidth = [_editLabel bounds].size.width;
    [_editLabel setFrame:CGRectMake(ABUIReadsFromTheRight() ? 15 : size.width - 15 - editWidth, kStatusBarHeight,
                                    editWidth, textHeight)];
    [_buttonBar setFrame:CGRectMake(0, size.height - kButtonBarHeight, size.width, kButtonBarHeight)];
    NSArray* buttons = @[ _favoritesButton, _recentsButton, _contactsButton ];
    const CGFloat width = size.width / 3;
    for (int i = 0; i < 3; ++i) {
        UIView* button = [buttons objectAtIndex:(NSUInteger)(ABUIReadsFromTheRight() ? 2 - i : i)];
        [button setFrame:CGRectMake(i * width, 0, width, kButtonBarHeight)];
    }
    [self layOutLists];
}

- (void)layOutLists {
    const CGSize size = [[self view] bounds].size;
    [[_shownController view]
        setFrame:CGRectMake(0, kTitleBarHeight, size.width, size.height - kTitleBarHeight - kButtonBarHeight)];
    [_favoritesStrip setFrame:[[_favoritesController view] bounds]];
}

@end

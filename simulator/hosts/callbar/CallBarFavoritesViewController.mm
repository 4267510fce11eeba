#import "simulator/hosts/callbar/CallBarFavoritesViewController.h"

#import "simulator/hosts/callbar/CallBarDrawing.h"

@implementation CallBarFavoritesViewController

- (void)dealloc {
    [_emptyLabel release];
    [super dealloc];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [[self view] setBackgroundColor:[UIColor whiteColor]];
    _emptyLabel = [[UILabel alloc] initWithFrame:CGRectZero];
    [_emptyLabel setText:@"No Favorites"];
    [_emptyLabel setFont:[UIFont systemFontOfSize:24]];
    [_emptyLabel setTextColor:CallBarSecondaryTextColor()];
    [_emptyLabel setTextAlignment:NSTextAlignmentCenter];
    [_emptyLabel setHidden:YES];
    [[self view] addSubview:_emptyLabel];
}

- (void)viewWillLayoutSubviews {
    [super viewWillLayoutSubviews];
    [_emptyLabel setFrame:[[self view] bounds]];
}

- (void)viewDidAppear:(BOOL)animated {
    [super viewDidAppear:animated];
}

- (void)setShowsNoFavorites:(BOOL)empty {
    [self view];
    [_emptyLabel setHidden:!empty];
}

@end

#include "simulator/frameworks/uikit/control/UINavigationItem.h"

#include "simulator/frameworks/uikit/view/UIView.h"

@implementation UINavigationItem

@synthesize title = _title;

- (instancetype)initWithTitle:(NSString*)title {
    self = [super init];
    if (self) _title = [title copy];
    return self;
}

- (void)dealloc {
    [_title release];
    [super dealloc];
}

- (void)setTitle:(NSString*)title {
    ASSIGNCOPY(_title, title);
    [_shownBy setNeedsLayout];
}

- (void)_setShownBy:(UIView*)bar {
    _shownBy = bar;
}

@end

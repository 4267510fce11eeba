#include "simulator/frameworks/preferences/PSTableCell.h"

namespace {

UIColor* greyedText() { return [UIColor colorWithRed:0.557 green:0.557 blue:0.576 alpha:1]; }

}  // namespace

@implementation PSTableCell

@synthesize specifier = _specifier;
@synthesize cellEnabled = _cellEnabled;

+ (Class)_cellClassOf:(PSSpecifier*)specifier {
    id custom = [specifier propertyForKey:@"cellClass"];
    if (!custom) return [specifier cellType] == PSSwitchCell ? [PSSwitchTableCell class] : [PSTableCell class];
    Class found = [custom isKindOfClass:[NSString class]] ? NSClassFromString(custom) : (Class)custom;
    if (![found isSubclassOfClass:[PSTableCell class]]) {
        [NSException raise:NSInvalidArgumentException
                    format:@"PSTableCell: cellClass %@ of %@ is no kind of PSTableCell", custom, specifier];
    }
    return found;
}

+ (UITableViewCellStyle)_cellStyleOf:(PSSpecifier*)specifier {
    const NSInteger type = [specifier cellType];
    return type == PSTitleValueCell || type == PSLinkCell ? UITableViewCellStyleValue1 : UITableViewCellStyleDefault;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier {
    return [self initWithStyle:style reuseIdentifier:reuseIdentifier specifier:nil];
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString*)reuseIdentifier
                    specifier:(PSSpecifier*)specifier {
    self = [super initWithStyle:style reuseIdentifier:reuseIdentifier];
    if (self) {
        _specifier = [specifier retain];
        _cellEnabled = YES;
    }
    return self;
}

- (void)dealloc {
    [_specifier release];
    [super dealloc];
}

- (void)setCellEnabled:(BOOL)enabled {
    _cellEnabled = enabled;
    [self _showColors];
}

- (BOOL)_reactsToTaps {
    const NSInteger type = [_specifier cellType];
    return _cellEnabled && (type == PSLinkCell || type == PSButtonCell);
}

- (void)_showColors {
    UIColor* color = [_specifier cellType] == PSButtonCell ? [self tintColor] : [UIColor blackColor];
    [[self textLabel] setTextColor:_cellEnabled ? color : greyedText()];
    [self setSelectionStyle:[self _reactsToTaps] ? UITableViewCellSelectionStyleDefault
                                                 : UITableViewCellSelectionStyleNone];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier*)specifier {
    [self setSpecifier:specifier];
    [[self textLabel] setText:[specifier name]];
    [[self imageView] setImage:[specifier propertyForKey:@"iconImage"]];
    [self setAccessoryType:[specifier cellType] == PSLinkCell ? UITableViewCellAccessoryDisclosureIndicator
                                                              : UITableViewCellAccessoryNone];
    if ([specifier cellType] == PSTitleValueCell) {
        id value = [specifier performGetter];
        [[self detailTextLabel] setText:[value isKindOfClass:[NSString class]] ? value : [value description]];
    }
    NSNumber* enabled = [specifier propertyForKey:@"enabled"];
    [self setCellEnabled:enabled == nil || [enabled boolValue]];
    [self setNeedsLayout];
}

@end

@implementation PSControlTableCell

@synthesize control = _control;

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString*)reuseIdentifier
                    specifier:(PSSpecifier*)specifier {
    self = [super initWithStyle:style reuseIdentifier:reuseIdentifier specifier:specifier];
    if (self) {
        UIControl* control = [self newControl];
        [self setControl:control];
        [control release];
    }
    return self;
}

- (void)dealloc {
    [_control removeTarget:self action:NULL forControlEvents:UIControlEventAllEvents];
    [_control release];
    [super dealloc];
}

- (void)setControl:(UIControl*)control {
    [_control removeTarget:self action:NULL forControlEvents:UIControlEventAllEvents];
    ASSIGN(_control, control);
    [_control addTarget:self action:@selector(controlChanged:) forControlEvents:UIControlEventValueChanged];
    [self setAccessoryView:_control];
}

- (UIControl*)newControl {
    [NSException raise:NSInternalInconsistencyException format:@"-[%@ newControl] is not implemented", [self class]];
    return nil;
}

- (id)controlValue {
    [NSException raise:NSInternalInconsistencyException format:@"-[%@ controlValue] is not implemented", [self class]];
    return nil;
}

- (void)setValue:(id)value {
    [NSException raise:NSInternalInconsistencyException format:@"-[%@ setValue:] is not implemented", [self class]];
}

- (void)controlChanged:(UIControl*)control {
    [[self specifier] performSetterWithValue:[self controlValue]];
}

- (void)setCellEnabled:(BOOL)enabled {
    [super setCellEnabled:enabled];
    [_control setEnabled:enabled];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier*)specifier {
    [super refreshCellContentsWithSpecifier:specifier];
    [self setValue:[specifier performGetter]];
}

@end

@implementation PSSwitchTableCell

- (UIControl*)newControl {
    return [[UISwitch alloc] initWithFrame:CGRectZero];
}

- (id)controlValue {
    return [NSNumber numberWithBool:[(UISwitch*)[self control] isOn]];
}

- (void)setValue:(id)value {
    [(UISwitch*)[self control] setOn:[value boolValue] animated:NO];
}

@end

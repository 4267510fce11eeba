#pragma once

#include "simulator/frameworks/preferences/PSSpecifier.h"
#include "simulator/frameworks/uikit/uikit.h"

// The row of a specifier: its name, and for a PSTitleValueCell its value. A specifier's property "cellClass" may name a
// subclass.
@interface PSTableCell : UITableViewCell {
  @private
    PSSpecifier* _specifier;
    BOOL _cellEnabled;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString*)reuseIdentifier
                    specifier:(PSSpecifier*)specifier;

@property (nonatomic, retain) PSSpecifier* specifier;
@property (nonatomic) BOOL cellEnabled;  // a disabled cell is grey and lets nobody tap it

// Shows the specifier as it is now; the list sends it before the cell comes into sight, and after a reload.
- (void)refreshCellContentsWithSpecifier:(PSSpecifier*)specifier;

// The class and the style of a specifier's cell. Raises for a "cellClass" that is no PSTableCell.
+ (Class)_cellClassOf:(PSSpecifier*)specifier;
+ (UITableViewCellStyle)_cellStyleOf:(PSSpecifier*)specifier;

@end

// A row with a control at its end.
@interface PSControlTableCell : PSTableCell {
  @private
    UIControl* _control;
}

@property (nonatomic, retain) UIControl* control;

// For subclasses: the control to stand at the end (+1), and what it shows of the specifier's value.
- (UIControl*)newControl;
- (id)controlValue;
- (void)setValue:(id)value;
// What the control does when somebody has changed its value: sets the specifier's.
- (void)controlChanged:(UIControl*)control;

@end

@interface PSSwitchTableCell : PSControlTableCell
@end

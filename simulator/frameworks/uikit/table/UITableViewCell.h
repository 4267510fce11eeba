#pragma once

#include "simulator/frameworks/uikit/table/UITableViewCellTypes.h"
#include "simulator/frameworks/uikit/view/UIView.h"

@class UIImageView, UILabel, UITableViewCellEditControl, UITableViewCellScrollView;

// A row. From system 8 on the content view stands in the cell itself; on 7 a UITableViewCellScrollView stands between
// them; before 7 it stands in the cell. The cell's own labels are UITableViewLabels from 8 on, UILabels before.
//
// Right-to-left: labels read from the right everywhere. Mirroring of the whole row (accessory at the left, picture
// and delete control at the right) came to UIKit with system 9; before that the accessory stays at the right.
@interface UITableViewCell : UIView {
  @private
    UITableViewCellStyle _style;
    NSString* _reuseIdentifier;
    UITableViewCellScrollView* _scrollView;
    UIView* _contentView;
    UILabel* _textLabel;
    UILabel* _detailTextLabel;
    UIImageView* _imageView;
    UIView* _accessoryView;
    UIView* _defaultAccessory;
    UIView* _separatorView;
    UIView* _topLineView;
    NSUInteger _sectionEdges;
    UIView* _backgroundView;
    UIView* _selectedBackgroundView;
    UITableViewCellEditControl* _editControl;
    UITableViewCellAccessoryType _accessoryType;
    UITableViewCellEditingStyle _editingStyle;
    UITableViewCellSelectionStyle _selectionStyle;
    UIEdgeInsets _separatorInset;
    CGFloat _indexWidth;
    BOOL _hasOwnSeparatorInset;
    BOOL _editing;
    BOOL _selected;
    BOOL _highlighted;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString*)reuseIdentifier;

@property (nonatomic, readonly) NSString* reuseIdentifier;  // +0
@property (nonatomic, readonly) UIView* contentView;        // +0
@property (nonatomic, readonly) UILabel* textLabel;         // made on first use; +0
@property (nonatomic, readonly) UILabel* detailTextLabel;   // made on first use; nil for the default style; +0
@property (nonatomic, readonly) UIImageView* imageView;     // made on first use; +0
@property (nonatomic) UITableViewCellAccessoryType accessoryType;
@property (nonatomic, retain) UIView* accessoryView;  // shown instead of the type's own
@property (nonatomic, retain) UIView* backgroundView;
@property (nonatomic, retain) UIView* selectedBackgroundView;
@property (nonatomic) UITableViewCellSelectionStyle selectionStyle;
@property (nonatomic, getter=isSelected) BOOL selected;
@property (nonatomic, getter=isHighlighted) BOOL highlighted;
@property (nonatomic) UIEdgeInsets separatorInset;  // its left is also where the contents begin
@property (nonatomic, getter=isEditing) BOOL editing;
@property (nonatomic, readonly) UITableViewCellEditingStyle editingStyle;

- (void)setEditing:(BOOL)editing animated:(BOOL)animated;
- (void)setSelected:(BOOL)selected animated:(BOOL)animated;
- (void)setHighlighted:(BOOL)highlighted animated:(BOOL)animated;
// Called before the cell is handed out again; the contents are the caller's to reset.
- (void)prepareForReuse;

// The view made for the accessory type; nil for UITableViewCellAccessoryNone. While editing it stands beyond the
// cell's edge, out of sight. +0.
- (UIView*)_defaultAccessoryView;

@end

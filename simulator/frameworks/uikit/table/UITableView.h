#pragma once

#include "simulator/frameworks/uikit/table/NSIndexPath+UITableView.h"
#include "simulator/frameworks/uikit/table/UITableViewCell.h"
#include "simulator/frameworks/uikit/view/UIScrollView.h"

@class UITableView, UITableViewIndex;
struct UITableViewRowMap;

typedef NS_ENUM(NSInteger, UITableViewStyle) {
    UITableViewStylePlain,
    UITableViewStyleGrouped,
};

typedef NS_ENUM(NSInteger, UITableViewScrollPosition) {
    UITableViewScrollPositionNone,
    UITableViewScrollPositionTop,
    UITableViewScrollPositionMiddle,
    UITableViewScrollPositionBottom,
};

typedef NS_ENUM(NSInteger, UITableViewCellSeparatorStyle) {
    UITableViewCellSeparatorStyleNone,
    UITableViewCellSeparatorStyleSingleLine,
};

typedef NS_ENUM(NSInteger, UITableViewRowAnimation) {
    UITableViewRowAnimationFade,
    UITableViewRowAnimationNone = 5,
    UITableViewRowAnimationAutomatic = 100,
};

@protocol UITableViewDataSource <NSObject>
@required
- (NSInteger)tableView:(UITableView*)tableView numberOfRowsInSection:(NSInteger)section;
- (UITableViewCell*)tableView:(UITableView*)tableView cellForRowAtIndexPath:(NSIndexPath*)indexPath;
@optional
- (NSInteger)numberOfSectionsInTableView:(UITableView*)tableView;
- (NSString*)tableView:(UITableView*)tableView titleForHeaderInSection:(NSInteger)section;
- (NSString*)tableView:(UITableView*)tableView titleForFooterInSection:(NSInteger)section;
- (NSArray*)sectionIndexTitlesForTableView:(UITableView*)tableView;
- (BOOL)tableView:(UITableView*)tableView canEditRowAtIndexPath:(NSIndexPath*)indexPath;
- (void)tableView:(UITableView*)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)editingStyle
     forRowAtIndexPath:(NSIndexPath*)indexPath;
@end

@protocol UITableViewDelegate <UIScrollViewDelegate>
@optional
- (CGFloat)tableView:(UITableView*)tableView heightForRowAtIndexPath:(NSIndexPath*)indexPath;
- (CGFloat)tableView:(UITableView*)tableView heightForHeaderInSection:(NSInteger)section;
- (UIView*)tableView:(UITableView*)tableView viewForHeaderInSection:(NSInteger)section;
- (CGFloat)tableView:(UITableView*)tableView heightForFooterInSection:(NSInteger)section;
- (UIView*)tableView:(UITableView*)tableView viewForFooterInSection:(NSInteger)section;
- (void)tableView:(UITableView*)tableView
      willDisplayCell:(UITableViewCell*)cell
    forRowAtIndexPath:(NSIndexPath*)indexPath;
- (void)tableView:(UITableView*)tableView didSelectRowAtIndexPath:(NSIndexPath*)indexPath;
- (UITableViewCellEditingStyle)tableView:(UITableView*)tableView editingStyleForRowAtIndexPath:(NSIndexPath*)indexPath;
@end

// What a delegate returns for a header or footer that is to be as high as its title wants it.
CG_EXTERN const CGFloat UITableViewAutomaticDimension;

// A list of rows in sections. Only the rows in sight have cells; a cell that leaves goes to the pool of its reuse
// identifier and is handed out again. Systems 7 to 10 put the cells into a UITableViewWrapperView.
@interface UITableView : UIScrollView {
  @private
    UITableViewStyle _style;
    id<UITableViewDataSource> _dataSource;
    struct UITableViewRowMap* _rows;
    NSMutableDictionary* _reusableCells;
    NSMutableDictionary* _cellClasses;
    NSMutableDictionary* _cells;
    NSMutableDictionary* _headers;
    NSMutableDictionary* _footers;
    UIView* _wrapperView;
    UIView* _tableHeaderView;
    UIView* _tableFooterView;
    UITableViewIndex* _index;
    UIColor* _separatorColor;
    UIEdgeInsets _separatorInset;
    UITableViewCellSeparatorStyle _separatorStyle;
    CGFloat _rowHeight;
    CGFloat _sectionHeaderHeight;
    BOOL _editing;
    BOOL _needsReload;
}

- (instancetype)initWithFrame:(CGRect)frame style:(UITableViewStyle)style;

@property (nonatomic, readonly) UITableViewStyle style;
@property (nonatomic, assign) id<UITableViewDataSource> dataSource;
@property (nonatomic, assign) id<UITableViewDelegate> delegate;
@property (nonatomic) CGFloat rowHeight;  // 44 at first
// Of headers with a title, unless the delegate says otherwise; a grouped table's first is higher.
@property (nonatomic) CGFloat sectionHeaderHeight;
@property (nonatomic) UITableViewCellSeparatorStyle separatorStyle;
@property (nonatomic, retain) UIColor* separatorColor;
@property (nonatomic) UIEdgeInsets separatorInset;
@property (nonatomic, retain) UIView* tableHeaderView;
@property (nonatomic, retain) UIView* tableFooterView;
@property (nonatomic, getter=isEditing) BOOL editing;

// Asks the data source for everything again; cells in sight go to the pool, and the next layout pass fetches anew.
- (void)reloadData;
- (void)reloadRowsAtIndexPaths:(NSArray*)indexPaths withRowAnimation:(UITableViewRowAnimation)animation;

- (void)setEditing:(BOOL)editing animated:(BOOL)animated;
- (void)registerClass:(Class)cellClass forCellReuseIdentifier:(NSString*)identifier;

@end

@interface UITableView (UITableViewRows)

- (NSInteger)numberOfSections;
- (NSInteger)numberOfRowsInSection:(NSInteger)section;
- (CGRect)rectForRowAtIndexPath:(NSIndexPath*)indexPath;
- (NSIndexPath*)indexPathForRowAtPoint:(CGPoint)point;  // nil between rows; +0
- (NSArray*)indexPathsForRowsInRect:(CGRect)rect;       // +0

- (void)scrollToRowAtIndexPath:(NSIndexPath*)indexPath
              atScrollPosition:(UITableViewScrollPosition)position
                      animated:(BOOL)animated;

@end

@interface UITableView (UITableViewHeaders)

- (CGRect)rectForHeaderInSection:(NSInteger)section;
- (CGRect)rectForFooterInSection:(NSInteger)section;

@end

@interface UITableView (UITableViewCells)

- (NSIndexPath*)indexPathForCell:(UITableViewCell*)cell;            // nil for a cell out of sight; +0
- (UITableViewCell*)cellForRowAtIndexPath:(NSIndexPath*)indexPath;  // nil for a row out of sight; +0
- (NSArray*)visibleCells;                                           // from the top down; +0
- (NSArray*)indexPathsForVisibleRows;                               // from the top down; +0

// A row out of sight has no cell to show it, and shows nothing later either.
- (void)selectRowAtIndexPath:(NSIndexPath*)indexPath
                    animated:(BOOL)animated
              scrollPosition:(UITableViewScrollPosition)position;
- (void)deselectRowAtIndexPath:(NSIndexPath*)indexPath animated:(BOOL)animated;

// A cell from the pool, prepared for reuse, or nil. +0.
- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier;
// The same, or a new one of the registered class; raises when no class is registered. +0.
- (id)dequeueReusableCellWithIdentifier:(NSString*)identifier forIndexPath:(NSIndexPath*)indexPath;

@end

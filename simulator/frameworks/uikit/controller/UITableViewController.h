#pragma once

#include "simulator/frameworks/uikit/controller/UIViewController.h"
#include "simulator/frameworks/uikit/table/UITableView.h"

// A controller whose view is a table and which is its data source and delegate.
@interface UITableViewController : UIViewController <UITableViewDataSource, UITableViewDelegate> {
  @private
    UITableViewStyle _style;
}

- (instancetype)initWithStyle:(UITableViewStyle)style;

@property (nonatomic, retain) UITableView* tableView;  // the view

@end

#pragma once

#import <Foundation/Foundation.h>

// An index path of two indexes: section, then row.
@interface NSIndexPath (UITableView)

+ (NSIndexPath*)indexPathForRow:(NSInteger)row inSection:(NSInteger)section;  // +0

@property (nonatomic, readonly) NSInteger section;
@property (nonatomic, readonly) NSInteger row;

@end

#include "simulator/frameworks/uikit/table/NSIndexPath+UITableView.h"

@implementation NSIndexPath (UITableView)

+ (NSIndexPath*)indexPathForRow:(NSInteger)row inSection:(NSInteger)section {
    NSUInteger indexes[] = {(NSUInteger)section, (NSUInteger)row};
    return [NSIndexPath indexPathWithIndexes:indexes length:2];
}

- (NSInteger)section {
    return (NSInteger)[self indexAtPosition:0];
}

- (NSInteger)row {
    return (NSInteger)[self indexAtPosition:1];
}

@end

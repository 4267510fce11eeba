// What a view sends to its controller.
#pragma once

#import <Foundation/Foundation.h>

@protocol UIViewDelegate <NSObject>
// Around the view's own -layoutSubviews.
- (void)viewWillLayoutSubviews;
- (void)viewDidLayoutSubviews;
@end

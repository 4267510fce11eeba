#pragma once

#import <Foundation/Foundation.h>

@class UIView;

// What a controller has the navigation bar show.
@interface UINavigationItem : NSObject {
  @private
    NSString* _title;
    UIView* _shownBy;
}

- (instancetype)initWithTitle:(NSString*)title;

@property (nonatomic, copy) NSString* title;

// The bar to lay out when the title changes; unowned.
- (void)_setShownBy:(UIView*)bar;

@end

#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UIAlertView;

@protocol UIAlertViewDelegate <NSObject>
@optional
- (void)alertView:(UIAlertView*)alertView clickedButtonAtIndex:(NSInteger)buttonIndex;
- (void)alertView:(UIAlertView*)alertView didDismissWithButtonIndex:(NSInteger)buttonIndex;
@end

// A question in front of everything. It is shown in the key window, which retains it until a button is pressed; of
// several the last shown is in front.
@interface UIAlertView : UIView {
  @private
    NSString* _title;
    NSString* _message;
    NSMutableArray* _buttonTitles;
    UIView* _box;
    id _delegate;
    NSInteger _cancelButtonIndex;
}

// The other titles end with nil. A cancel button is the first, index 0.
- (instancetype)initWithTitle:(NSString*)title
                      message:(NSString*)message
                     delegate:(id)delegate
            cancelButtonTitle:(NSString*)cancelButtonTitle
            otherButtonTitles:(NSString*)otherButtonTitles, ...;

@property (nonatomic, assign) id delegate;
@property (nonatomic, copy) NSString* title;
@property (nonatomic, copy) NSString* message;
@property (nonatomic, readonly) NSInteger numberOfButtons;
@property (nonatomic) NSInteger cancelButtonIndex;  // -1: there is none
@property (nonatomic, readonly, getter=isVisible) BOOL visible;

- (NSInteger)addButtonWithTitle:(NSString*)title;  // its index
- (NSString*)buttonTitleAtIndex:(NSInteger)index;  // +0; an index beyond the buttons raises
// Raises when there is no key window to show it in.
- (void)show;
// Takes it away and reports that to the delegate, but not a click.
- (void)dismissWithClickedButtonIndex:(NSInteger)index animated:(BOOL)animated;

// What a finger does: the delegate is told of the click, then the alert goes.
- (void)_pressButtonAtIndex:(NSInteger)index;
// The alert in front; nil when none is shown. +0.
+ (UIAlertView*)_frontmost;

@end

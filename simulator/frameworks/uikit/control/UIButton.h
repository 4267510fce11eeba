#pragma once

#include "simulator/frameworks/uikit/control/UIControl.h"

@class UIImage, UIImageView, UILabel;

typedef NS_ENUM(NSInteger, UIButtonType) {
    UIButtonTypeCustom = 0,
    UIButtonTypeSystem = 1,
    UIButtonTypeDetailDisclosure = 2,
    UIButtonTypeInfoLight = 3,
    UIButtonTypeInfoDark = 4,
};

// A title, or a picture before a title, centred. A value set for a state shows in that state; others show the normal
// one.
@interface UIButton : UIControl {
  @private
    UIButtonType _buttonType;
    NSMutableDictionary* _titles;
    NSMutableDictionary* _titleColors;
    NSMutableDictionary* _images;
    UILabel* _titleLabel;
    UIImageView* _imageView;
}

+ (instancetype)buttonWithType:(UIButtonType)type;  // +0

@property (nonatomic, readonly) UIButtonType buttonType;
@property (nonatomic, readonly) UILabel* titleLabel;     // +0
@property (nonatomic, readonly) UIImageView* imageView;  // +0

- (void)setTitle:(NSString*)title forState:(UIControlState)state;
- (NSString*)titleForState:(UIControlState)state;
- (void)setTitleColor:(UIColor*)color forState:(UIControlState)state;
- (UIColor*)titleColorForState:(UIControlState)state;
- (void)setImage:(UIImage*)image forState:(UIControlState)state;
- (UIImage*)imageForState:(UIControlState)state;

@end

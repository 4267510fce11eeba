#pragma once

#import <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, UIUserInterfaceIdiom) {
    UIUserInterfaceIdiomPhone,
    UIUserInterfaceIdiomPad,
};

@interface UIDevice : NSObject

+ (UIDevice*)currentDevice;  // +0

@property (nonatomic, readonly) NSString* systemVersion;  // such as "8.4"; +0
@property (nonatomic, readonly) NSString* systemName;     // +0
@property (nonatomic, readonly) NSString* model;          // such as "iPhone"; +0
@property (nonatomic, readonly) UIUserInterfaceIdiom userInterfaceIdiom;

@end

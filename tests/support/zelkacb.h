// What the library offers other code in its process, declared by hand as protocols: the compiler keeps its own encoding
// of each message, which bears witness against the library's (encodings.h). Nothing here is linked: classes are asked
// for by name.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/address_book/address_book.h"
#include "simulator/frameworks/uikit/uikit.h"

#define Utils ((Class<ZelkaCBUtils>)objc_getClass("ZelkaCBUtils"))
#define SettingsClass ((Class<ZLKCBSettings>)objc_getClass("ZLKCBSettings"))
#define Hardware ((Class<ZLKCBUIDeviceHardware>)objc_getClass("ZLKCBUIDeviceHardware"))

@class ZLKCBSettings;

@protocol ZLKCBSettings <NSObject>
+ (ZLKCBSettings*)sharedSettings;
+ (NSDictionary*)settingsDictionary:(NSString*)path;
#define SETTING(name, stem, standard, group, getter, label) @property (nonatomic) BOOL getter;
#include "resources/settings.def"
#undef SETTING
- (void)loadSettings;
@end

@interface ZLKCBSettings : NSObject <ZLKCBSettings>
@end

@protocol ZLKCBUIDeviceHardware <NSObject>
+ (NSString*)platform;
+ (NSString*)platformString;
- (NSString*)platform;
- (NSString*)platformString;
@end

@protocol ZelkaCBUtils <NSObject>
+ (BOOL)isMatchingIOSFound:(NSString*)version;
+ (BOOL)isIOS_7;
+ (BOOL)isIOS_8;
+ (BOOL)isRetinaDisplay;
+ (BOOL)isIPhone4;
+ (BOOL)isIPhone6;
+ (BOOL)isIPhone6Plus;
+ (BOOL)isIPhone6OR6Plus;
+ (CGFloat)screenWidth;
+ (CGFloat)screenHeight;

+ (NSString*)getFormattedPhoneNumber:(NSString*)number;
+ (NSString*)getPlainPhoneNumber:(NSString*)number;
+ (NSString*)getPhoneNumberFromURL:(NSString*)link;

+ (ABAddressBookRef)getAddressBook;
+ (ABRecordRef)getPersonRecordFromDB:(ABRecordID)contactID;
+ (NSData*)getContactImageDataFromAB:(ABRecordID)contactID;
+ (UIImage*)getImageFromImageData:(NSData*)data contactId:(ABRecordID)contactID;
+ (UIImage*)getContactImageOnly:(ABRecordID)contactID
                   monogramText:(NSString*)text
                       newImage:(BOOL)newImage
                           size:(CGSize)size
                           font:(UIFont*)font;
+ (UIImage*)getContactImageOnly:(ABRecordID)contactID
                   monogramText:(NSString*)text
                       newImage:(BOOL)newImage
                           size:(CGSize)size;
+ (UIImage*)getContactImageOnly:(ABRecordID)contactID monogramText:(NSString*)text newImage:(BOOL)newImage;
+ (UIImage*)getContactImage:(ABRecordID)contactID;
+ (UIImage*)getContactImageByNumber:(NSString*)text;
+ (ABRecordID)getContactID:(NSString*)text;
+ (NSData*)getContactImageABUIPerson:(id)person;
+ (UIImage*)getContactImageOnlyIOS7:(id)person;
+ (UIImage*)getContactImageFromAB:(ABRecordID)contactID monogramText:(NSString*)text;
+ (UIImage*)getContactImageFromAB:(ABRecordID)contactID addressBook:(BOOL)addressBook monogramText:(NSString*)text;
+ (UIImage*)getChatKitContactImageOnly:(ABRecordID)contactID monogramText:(NSString*)text date:(int)date;

+ (NSString*)monogramTextFromName:(NSString*)name;
+ (NSString*)monogramTextFromContactID:(ABRecordID)contactID;
+ (NSString*)getMonogramTextFromAB:(ABRecordID)contactID currentReadCount:(int)count;
+ (NSString*)getMonogramTextFromAB:(ABRecordID)contactID;
+ (NSString*)monogramTextFromAB:(ABRecordID)contactID;

+ (UIColor*)getMonogramRandomColor:(NSInteger)seed darkColor:(BOOL)dark;
+ (UIColor*)getMonogramRandomColor:(NSInteger)seed;

+ (UIImage*)monogramImage:(NSString*)text size:(CGSize)size color:(UIColor*)color font:(UIFont*)font;
+ (UIImage*)monogramImage:(NSString*)text
                contactID:(NSInteger)contactID
                     size:(CGSize)size
                    color:(UIColor*)color
                     font:(UIFont*)font;
+ (UIImage*)monogramImage:(NSString*)text contactID:(NSInteger)contactID size:(CGSize)size color:(UIColor*)color;
+ (UIImage*)monogramImage:(NSString*)text contactID:(NSInteger)contactID size:(CGSize)size font:(UIFont*)font;
+ (UIImage*)monogramImage:(NSString*)text contactID:(NSInteger)contactID size:(CGSize)size;
+ (UIImage*)monogramImage:(NSString*)text contactID:(NSInteger)contactID;
+ (UIImage*)monogramImage:(NSString*)text size:(CGSize)size font:(UIFont*)font;
+ (UIImage*)monogramImage:(NSString*)text size:(CGSize)size;
+ (UIImage*)monogramImage:(NSString*)text;
+ (UIImage*)getMonogramImageFromName:(NSString*)name contactID:(NSInteger)contactID;
+ (UIImage*)getMonogramImageFromName:(NSString*)name;
+ (UIImage*)getMonogramImageFromName:(NSString*)name email:(NSString*)email;
+ (UIImage*)getMonogramImage:(NSInteger)contactID source:(UIImage*)source size:(CGSize)size color:(UIColor*)color;
+ (UIImage*)getMonogramImage:(NSInteger)contactID color:(UIColor*)color;
+ (UIImage*)getMonogramImage:(NSInteger)contactID;
+ (UIImage*)getMonogramImage;
+ (UIImage*)defaultImage;

+ (UIImage*)roundedImage:(UIImage*)image width:(float)width height:(float)height;
+ (UIImage*)roundedImage:(UIImage*)image;
+ (UIImage*)resizeImage:(UIImage*)image withWidth:(int)width withHeight:(int)height;
+ (UIImage*)scaleImage:(UIImage*)image toSize:(CGSize)size;
+ (UIImage*)getImageFromImageData:(NSData*)data;
+ (UIImage*)getImage:(NSString*)path;
+ (UIImage*)getImage:(NSString*)path size:(CGSize)size;

+ (void)initImageCache;
+ (UIImage*)getContactImageInCacheForKey:(id)key;
+ (UIImage*)getContactImageInCache:(ABRecordID)contactID;
+ (void)setContactImage:(UIImage*)image withID:(id)key;
+ (void)setContactImage:(UIImage*)image contactId:(ABRecordID)contactID;
+ (BOOL)removeImageFromCacheForID:(id)key;
+ (void)removeContactIDFromCache:(ABRecordID)contactID;
+ (BOOL)removeImageFromCache:(ABRecordID)contactID;
+ (void)clearImageCache;
+ (void)removeAvatarsFromCache;
+ (void)prepareImageCache;
+ (BOOL)canprepareImageCache;
+ (NSOperationQueue*)queue;
+ (id)ZelkaCBUtilsInstance;

+ (BOOL)isZelkaCBOnlyOn;
+ (BOOL)isRoundedPicsEnabled;
+ (BOOL)isMonogramEnabled;
@end

@protocol ZelkaCBColors
+ (UIColor*)ZelkaCBColorWithHexaCode:(int)code;
+ (UIColor*)ZelkaCBColorWithRed:(NSInteger)red green:(NSInteger)green blue:(NSInteger)blue alpha:(CGFloat)alpha;
+ (UIColor*)ZelkaCBColorWithHexaCode:(NSString*)text alpha:(CGFloat)alpha;
@end

@interface UIColor (ZelkaCB) <ZelkaCBColors>
@end

@protocol ZelkaCBImages
- (UIImage*)imageWithRoundedCornersRadius:(float)radius;
@end

@interface UIImage (ZelkaCB) <ZelkaCBImages>
@end

@protocol ZelkaCBObjects
@property (nonatomic) NSInteger ZelkaCB_contactID;
@end

@interface NSObject (ZelkaCB1) <ZelkaCBObjects>
@end

@protocol ZelkaCBCells
- (UITableView*)parentTableView;
@end

@interface UITableViewCell (ZelkaCB1) <ZelkaCBCells>
@end

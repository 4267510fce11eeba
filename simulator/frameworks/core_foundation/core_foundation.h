#pragma once

// CoreFoundation's types are Foundation's objects here, so every reference can be messaged and cast.

#import <Foundation/Foundation.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef const void* CFTypeRef;
typedef NSString* CFStringRef;
typedef NSMutableString* CFMutableStringRef;
typedef NSData* CFDataRef;
typedef NSMutableData* CFMutableDataRef;
typedef NSArray* CFArrayRef;
typedef NSMutableArray* CFMutableArrayRef;
typedef NSDictionary* CFDictionaryRef;
typedef NSMutableDictionary* CFMutableDictionaryRef;
typedef NSNumber* CFNumberRef;
typedef NSNumber* CFBooleanRef;
typedef NSDate* CFDateRef;
typedef NSURL* CFURLRef;
typedef NSError* CFErrorRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef long CFIndex;
typedef unsigned char UInt8;
typedef unsigned char Boolean;
typedef double CFTimeInterval;
typedef double CFAbsoluteTime;  // seconds since 2001-01-01 00:00 UTC

#define kCFAllocatorDefault ((CFAllocatorRef)0)

// NULL ends the process with a message, as it ends a phone's.
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);

CFIndex CFDataGetLength(CFDataRef data);
// The data's own bytes; valid while the data is.
const UInt8* CFDataGetBytePtr(CFDataRef data);

CFIndex CFArrayGetCount(CFArrayRef array);
// The value, unowned (+0); outside the array it raises a range exception.
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);

typedef struct __CFNotificationCenter* CFNotificationCenterRef;
typedef CFIndex CFNotificationSuspensionBehavior;
enum : CFIndex {
    CFNotificationSuspensionBehaviorDrop = 1,
    CFNotificationSuspensionBehaviorCoalesce = 2,
    CFNotificationSuspensionBehaviorHold = 3,
    CFNotificationSuspensionBehaviorDeliverImmediately = 4,
};
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                       const void* object, CFDictionaryRef userInfo);

// The centre whose notifications cross the processes of one phone. They carry a name only: object, user info and
// suspension behaviour are ignored, as the platform documents for this centre.
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void);
// `name` must not be NULL for this centre. Registering the same again delivers once more for each. Any thread.
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior behaviour);
void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center, const void* observer, CFStringRef name,
                                        const void* object);
void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef center, const void* observer);
// Never waits for a receiver. Any thread.
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFStringRef name, const void* object,
                                          CFDictionaryRef userInfo, Boolean deliverImmediately);

#ifdef __cplusplus
}
#endif

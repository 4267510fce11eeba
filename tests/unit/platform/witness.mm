#include "tests/unit/platform/witness.h"

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include "simulator/frameworks/core_graphics/geometry.h"

static int alive = 0;
static int parentNumbers = 0;
static int childNumbers = 0;

@interface Witness : NSObject
- (BOOL)isTrue;
- (BOOL)isFalse;
- (signed char)byte;
- (unsigned short)halfWord;
- (int)word;
- (long long)longWord;
- (float)single;
- (double)precise;
- (id)myself;
- (Class)myClass;
- (SEL)mySelector;
- (const char*)text;
- (CGPoint)point;
- (CGSize)size;
- (CGRect)rect;
- (NSRange)range;
- (void)nothing;
- (CGRect)rect:(CGRect)rect movedBy:(CGFloat)distance truly:(BOOL)truly;
- (double)sumOfByte:(signed char)a
               half:(short)b
               word:(int)c
               wide:(long long)d
             single:(float)e
            precise:(double)f
              octet:(unsigned char)g
           positive:(unsigned)h
              point:(CGPoint)i
            integer:(NSInteger)j;
@end

@implementation Witness
- (id)init {
    ++alive;
    return [super init];
}
- (void)dealloc {
    --alive;
    [super dealloc];
}
- (BOOL)isTrue {
    return YES;
}
- (BOOL)isFalse {
    return NO;
}
- (signed char)byte {
    return -7;
}
- (unsigned short)halfWord {
    return 65535;
}
- (int)word {
    return -2000000000;
}
- (long long)longWord {
    return -9000000000000000000LL;
}
- (float)single {
    return 1.5F;
}
- (double)precise {
    return 2.25;
}
- (id)myself {
    return self;
}
- (Class)myClass {
    return [self class];
}
- (SEL)mySelector {
    return _cmd;
}
- (const char*)text {
    return "text";
}
- (CGPoint)point {
    return CGPointMake(1, 2);
}
- (CGSize)size {
    return CGSizeMake(3, 4);
}
- (CGRect)rect {
    return CGRectMake(5, 6, 7, 8);
}
- (NSRange)range {
    return NSMakeRange(9, 10);
}
- (void)nothing {
}
- (CGRect)rect:(CGRect)rect movedBy:(CGFloat)distance truly:(BOOL)truly {
    return truly ? CGRectMake(rect.origin.x + distance, rect.origin.y, rect.size.width, rect.size.height) : rect;
}
- (double)sumOfByte:(signed char)a
               half:(short)b
               word:(int)c
               wide:(long long)d
             single:(float)e
            precise:(double)f
              octet:(unsigned char)g
           positive:(unsigned)h
              point:(CGPoint)i
            integer:(NSInteger)j {
    return a + b + c + static_cast<double>(d) + static_cast<double>(e) + f + g + h + i.x + i.y + static_cast<double>(j);
}
@end

@interface HookParent : NSObject
- (int)number:(int)given;
@end
@implementation HookParent
- (int)number:(int)given {
    ++parentNumbers;
    return given + 1;
}
@end

@interface HookChild : HookParent
@end
@implementation HookChild
@end

@interface HookOwner : NSObject
- (int)number:(int)given;
@end
@implementation HookOwner
- (int)number:(int)given {
    ++childNumbers;
    return given + 100;
}
@end

@protocol RegisteredMethods
- (BOOL)opposite:(BOOL)given;
- (CGSize)sizeOfWidth:(CGFloat)width;
- (NSString*)name;
+ (int)add:(int)left to:(int)right;
@end

extern "C" {

void* witnessMake(void) { return [[Witness alloc] init]; }
int witnessesAlive(void) { return alive; }

const char* witnessEncoding(const char* selector) {
    Method method = class_getInstanceMethod([Witness class], sel_registerName(selector));
    return method != nullptr ? method_getTypeEncoding(method) : nullptr;
}

const char* const* witnessTypes(void) {
    static const char* const types[] = {
        @encode(BOOL),
        @encode(CGPoint),
        @encode(CGSize),
        @encode(CGRect),
        @encode(NSRange),
        @encode(CGFloat),
        @encode(NSInteger)
    };
    return types;
}

unsigned char callerTruth(void* object, unsigned char given) {
    return [static_cast<id<RegisteredMethods>>(object) opposite:given];
}
double callerWidth(void* object, double width) {
    return [static_cast<id<RegisteredMethods>>(object) sizeOfWidth:width].width;
}
const char* callerText(void* object) { return [[static_cast<id<RegisteredMethods>>(object) name] UTF8String]; }
int callerSum(void* cls, int left, int right) { return [static_cast<Class<RegisteredMethods>>(cls) add:left to:right]; }

int parentRuns(void) { return parentNumbers; }
int childRuns(void) { return childNumbers; }
void* childMake(void) { return [[HookChild alloc] init]; }
void* parentMake(void) { return [[HookParent alloc] init]; }
int callerNumber(void* object, int given) { return [static_cast<HookParent*>(object) number:given]; }
}

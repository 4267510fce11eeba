#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/replace_method.h"
#include "simulator/runtime/process/pending_work.h"

#include <atomic>

// What waits to be performed on the main thread, counted: the run loop performs what is queued for its next turn at
// that turn's beginning and then goes on waiting for something to happen, so whoever waits for a turn's end must know.

namespace {

constinit std::atomic<long> unperformed{0};

long countUnperformed() { return unperformed; }

}  // namespace

// Takes the receiver's place in the run loop's list.
@interface PhonePerformance : NSObject {
  @public
    id _receiver;
    SEL _selector;
    id _argument;
}
- (void)perform;
@end

@implementation PhonePerformance
- (instancetype)init {
    if ((self = [super init]) != nil) ++unperformed;
    return self;
}

- (void)dealloc {
    --unperformed;
    [_receiver release];
    [_argument release];
    [super dealloc];
}

- (void)perform {
    [_receiver performSelector:_selector withObject:_argument];
}
@end

namespace {

using PerformOnThread = void (*)(id, SEL, SEL, NSThread*, id, BOOL, NSArray*);

PerformOnThread performBefore;

void performOnThread(id self, SEL command, SEL selector, NSThread* thread, id argument, BOOL wait, NSArray* modes) {
    if (wait || ![thread isMainThread]) return performBefore(self, command, selector, thread, argument, wait, modes);
    PhonePerformance* performance = [[PhonePerformance alloc] init];
    performance->_receiver = [self retain];
    performance->_selector = selector;
    performance->_argument = [argument retain];
    performBefore(performance, command, @selector(perform), thread, nil, NO, modes);
    [performance release];
}

}  // namespace

@interface PhonePerformers : NSObject
@end
@implementation PhonePerformers
+ (void)load {
    performBefore = phone::replaceMethod(objc_getClass("NSObject"),
                                         "performSelector:onThread:withObject:waitUntilDone:modes:", performOnThread);
    phone::addWorkSource(countUnperformed);
}
@end

#import "simulator/hosts/remote/redraw.h"

#include "simulator/frameworks/core_foundation/core_foundation.h"
#import "simulator/hosts/callbar/CallBarScreen.h"
#import "simulator/hosts/remote/row_report.h"

// One look, from the expectation on.
@interface ZSRedraw : NSObject {
  @public
    NSString* _name;
    NSDictionary* _look;
    NSTimeInterval _delivered;
}
@end

namespace {

ZSRedraw* current = nil;

double now() { return [NSDate timeIntervalSinceReferenceDate]; }

void delivered(CFNotificationCenterRef center, void* observer, CFStringRef name, const void*, CFDictionaryRef) {
    CFNotificationCenterRemoveObserver(center, observer, name, nullptr);
    auto* redraw = static_cast<ZSRedraw*>(observer);
    redraw->_delivered = now();
    // Behind the layout pass, which stands at the very end itself.
    [[NSRunLoop mainRunLoop] performSelector:@selector(look)
                                      target:redraw
                                    argument:nil
                                       order:NSUIntegerMax
                                       modes:@[ NSDefaultRunLoopMode ]];
}

}  // namespace

@implementation ZSRedraw

- (void)dealloc {
    [_name release];
    [_look release];
    [super dealloc];
}

- (void)look {
    const double taken = now() - _delivered;
    CallBarControllerModern* controller = CallBarController();
    _look = [@{
        @"rows" : hosts::rowReports(controller, false),
        @"buttons" : hosts::favoriteReports(controller, false),
        @"seconds" : [NSNumber numberWithDouble:taken]
    } retain];
}

@end

namespace hosts {

void expectNotification(NSString* name) {
    CFNotificationCenterRef center = CFNotificationCenterGetDarwinNotifyCenter();
    if (current != nil) CFNotificationCenterRemoveEveryObserver(center, current);
    [current release];
    current = [[ZSRedraw alloc] init];
    current->_name = [name copy];
    CFNotificationCenterAddObserver(center, current, delivered, (CFStringRef)name, nullptr,
                                    CFNotificationSuspensionBehaviorDeliverImmediately);
}

phone::Result<NSDictionary*> awaitRedraw(double seconds) {
    if (current == nil) return phone::failure("no notification is expected");
    const double end = now() + seconds;
    while (current->_look == nil && now() < end) {
        [[NSRunLoop mainRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.005]];
    }
    if (current->_look == nil)
        return phone::failure(std::string([current->_name UTF8String]) + " did not come in time");
    return [[current->_look retain] autorelease];
}

}  // namespace hosts

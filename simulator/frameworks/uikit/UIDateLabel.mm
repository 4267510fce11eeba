#include <time.h>

#include <string>

#include "simulator/frameworks/uikit/UILabel.h"
#include "simulator/frameworks/uikit/UIView+Private.h"
#include "simulator/runtime/device.h"

namespace {

tm localTime(NSDate* date) {
    const time_t seconds = static_cast<time_t>([date timeIntervalSince1970]);
    tm result = {};
    localtime_r(&seconds, &result);
    return result;
}

// Whole days between two moments' calendar days. Noon keeps clear of daylight saving.
long daysBetween(tm earlier, tm later) {
    earlier.tm_hour = later.tm_hour = 12;
    earlier.tm_min = later.tm_min = earlier.tm_sec = later.tm_sec = 0;
    earlier.tm_isdst = later.tm_isdst = -1;
    return static_cast<long>((difftime(mktime(&later), mktime(&earlier)) + 43200) / 86400);
}

NSString* formatted(const tm& time, const char* format) {
    char buffer[64];
    strftime(buffer, sizeof buffer, format, &time);
    return [NSString stringWithUTF8String:buffer];
}

NSString* textFor(NSDate* date) {
    const tm then = localTime(date);
    const long days = daysBetween(then, localTime([NSDate date]));
    const bool american = phone::device().region == "US";
    if (days == 0) return formatted(then, american ? "%-I:%M %p" : "%H:%M");
    if (days == 1) return @"Yesterday";
    if (days > 1 && days < 7) return formatted(then, "%A");
    return formatted(then, american ? "%-m/%-d/%y" : "%d/%m/%Y");
}

}  // namespace

@implementation UIDateLabel

@synthesize date = _date;

- (void)dealloc {
    [_date release];
    [super dealloc];
}

- (void)setDate:(NSDate*)date {
    [self _requireThread:_cmd];
    [date retain];
    [_date release];
    _date = date;
    [self setText:date ? textFor(date) : nil];
}

@end

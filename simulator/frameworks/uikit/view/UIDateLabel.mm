#include <math.h>
#include <time.h>

#include <optional>
#include <string>

#include "simulator/frameworks/uikit/view/UILabel.h"
#include "simulator/frameworks/uikit/view/UIResponder+Private.h"
#include "simulator/runtime/process/device.h"

namespace {

// Far beyond every date that a calendar is made for, and well within what time_t and a year's number hold.
constexpr double kFurthest = 1e12;

// Nothing for a moment beyond every calendar.
std::optional<tm> localTime(NSDate* date) {
    const double since1970 = [date timeIntervalSince1970];
    if (!(fabs(since1970) <= kFurthest)) return std::nullopt;
    const time_t seconds = static_cast<time_t>(since1970);
    tm result = {};
    if (localtime_r(&seconds, &result) == nullptr) return std::nullopt;
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

// Empty for a date that has no form: a call history may hold any number.
NSString* textFor(NSDate* date) {
    const std::optional<tm> then = localTime(date);
    const std::optional<tm> now = localTime([NSDate date]);
    if (!then || !now) return @"";
    const long days = daysBetween(*then, *now);
    const bool american = phone::device().region == "US";
    if (days == 0) return formatted(*then, american ? "%-I:%M %p" : "%H:%M");
    if (days == 1) return @"Yesterday";
    if (days > 1 && days < 7) return formatted(*then, "%A");
    return formatted(*then, american ? "%-m/%-d/%y" : "%d/%m/%Y");
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
    ASSIGN(_date, date);
    [self setText:date ? textFor(date) : nil];
}

@end

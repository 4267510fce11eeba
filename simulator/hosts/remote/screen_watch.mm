#import "simulator/hosts/remote/screen_watch.h"

#include <algorithm>
#include <optional>

#include "simulator/frameworks/uikit/graphics/pixels.h"
#import "simulator/frameworks/uikit/uikit.h"
#import "simulator/hosts/remote/screen_window.h"
#include "simulator/runtime/process/pending_work.h"

namespace hosts {
namespace {

constexpr double kPatience = 2;       // seconds that a look waits for pictures still coming
constexpr double kShortTurn = 0.005;  // seconds; work may finish without waking the main thread
constexpr double kNothingToDo = 60;   // seconds; a date's text may change with the time, without any event

double now() { return [NSDate timeIntervalSinceReferenceDate]; }

phone::Status writePicture(UIImage* picture, NSString* out) {
    return phone::writePng([picture CGImage], [out UTF8String]);
}

}  // namespace

phone::Status ScreenWatch::start(NSString* out, double interval) {
    UIImage* picture = UISnapshotOfView(screenWindow());
    return writePicture(picture, out).map([&] {
        [out_ release];
        out_ = [out copy];
        interval_ = interval;
        shown_ = pixelsOf(picture);
        lastLook_ = now();
        lookWanted_ = 0;
    });
}

NSDate* ScreenWatch::endOfNextTurn() const {
    double wait = kNothingToDo;
    if (phone::pendingWork() > 0)
        wait = kShortTurn;
    else if (out_ != nil && lookWanted_ > 0)
        wait = std::max(0.0, lastLook_ + interval_ - now());
    return [NSDate dateWithTimeIntervalSinceNow:wait];
}

NSDictionary* ScreenWatch::turnEnded() {
    if (out_ == nil) return nil;
    const double time = now();
    if (lookWanted_ <= 0) lookWanted_ = time;
    if (phone::pendingWork() > 0 && time < lookWanted_ + kPatience) return nil;
    if (time < lastLook_ + interval_) return nil;
    lookWanted_ = 0;
    lastLook_ = time;
    UIImage* picture = UISnapshotOfView(screenWindow());
    Pixels pixels = pixelsOf(picture);
    if (pixels.rgba == shown_.rgba) return nil;
    shown_ = std::move(pixels);
    const phone::Status written = writePicture(picture, out_);
    if (written) return @{@"event" : @"picture"};
    return @{@"event" : @"problem", @"text" : [NSString stringWithUTF8String:written.error().message.c_str()]};
}

ScreenWatch& screenWatch() {
    static ScreenWatch watch;
    return watch;
}

}  // namespace hosts

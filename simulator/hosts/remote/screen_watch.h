// A picture of what is on this process's screen, kept up to date in a file.
#pragma once

#import <Foundation/Foundation.h>

#include "simulator/hosts/remote/pixels.h"
#include "simulator/runtime/result.h"

namespace hosts {

// Everything that can be seen changes on the main thread, so it is enough to look after the main run loop's turns; what
// is not laid out or not redrawn by its own doing stays as it was in the picture, too. Main thread.
class ScreenWatch {
  public:
    // Writes the picture to `out` (a path of this machine) now and keeps it up to date from then on, at most once in
    // `interval` seconds.
    [[nodiscard]] phone::Status start(NSString* out, double interval);

    // Until when the next turn of the run loop may wait for something to do (+0).
    NSDate* endOfNextTurn() const;
    // Looks at the screen unless work is pending or the last look is not long enough ago. What is to be sent when the
    // picture changed (+0): {"event": "picture"} or, when it could not be written, {"event": "problem", "text": why}.
    NSDictionary* turnEnded();

  private:
    NSString* out_ = nil;
    double interval_ = 0;
    double lastLook_ = 0;
    double lookWanted_ = 0;  // since when; 0 when nothing happened since the last look
    Pixels shown_;
};

// This process's.
ScreenWatch& screenWatch();

}  // namespace hosts

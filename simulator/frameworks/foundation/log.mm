#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/utf16.h"

#include <errno.h>
#include <unistd.h>

namespace {

// Foundation's own drops a line that is no valid Unicode; a phone's log takes any. One write a line, so that lines of
// several threads and processes stay whole and are there at once.
void writeLogLine(NSString* line) {
    const std::string text = phone::utf8(line);
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(STDERR_FILENO, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;  // there is nowhere left to tell it
        done += static_cast<size_t>(written);
    }
}

}  // namespace

@interface PhoneLog : NSObject
@end
@implementation PhoneLog
+ (void)load {
    _NSLog_printf_handler = writeLogLine;
}
@end

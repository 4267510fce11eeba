// Open files. Any thread, one at a time.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSFileHandle : NSObject {
    // An existing file, opened for writing (+0); nil when it cannot be.
    static NSFileHandle forWriting(NSString path) {
        return zelka::send<NSFileHandle, "fileHandleForWritingAtPath:">(zelka::platformClass<NSFileHandle>(), path);
    }
    // Cuts the file off there, in bytes from its beginning. Raises when the file system refuses.
    void truncateAt(unsigned long long offset) const { zelka::send<void, "truncateFileAtOffset:">(*this, offset); }
    void close() const { zelka::send<void, "closeFile">(*this); }
};

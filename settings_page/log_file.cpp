#include "settings_page/log_file.h"

#include "src/platform/foundation/NSByteCountFormatter.h"
#include "src/platform/foundation/NSFileHandle.h"
#include "src/platform/foundation/NSFileManager.h"

namespace zelka {
namespace {

// Where src/bootstrap/initialisers.cpp has standard error written.
NSString logPath() { return literal<"/tmp/ZelkaCB.log">(); }

// nil also for what is no plain file: anybody may leave a link in that folder, and what it leads to is not the log.
NSDictionary logAttributes() {
    NSDictionary attributes = NSFileManager::shared().attributes(logPath());
    return attributes.fileType().equals(literal<"NSFileTypeRegular">()) ? attributes : NSDictionary{};
}

}  // namespace

NSString logSize() {
    NSDictionary attributes = logAttributes();
    return attributes ? NSByteCountFormatter::text(static_cast<long long>(attributes.fileSize())) : NSString{};
}

bool emptyLog() {
    NSDictionary attributes = logAttributes();
    if (!attributes || attributes.fileSize() == 0) return true;
    NSFileHandle file = NSFileHandle::forWriting(logPath());
    if (!file) return false;
    file.truncateAt(0);
    file.close();
    return true;
}

}  // namespace zelka

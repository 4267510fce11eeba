// The library's own forms of log line. Parts are joined as src/platform/log.h says. Any thread.
#pragma once

#include "src/platform/log.h"

namespace zelka {

// Where a line is logged: the full signature of the operation and a line number, the calling statement's own where none
// is given. Four lines have fixed numbers (docs/compatibility.md).
struct LogSite {
    constexpr explicit LogSite(const char* operation, int line = __builtin_LINE()) : operation(operation), line(line) {}

    const char* operation;
    int line;
};

template <class... Parts>
void logInformation(LogSite site, Parts... parts) {
    logParts("com.norvex.ZelkaCB: Information => ", site.operation, ", [Line ", site.line, "], ", parts...);
}

template <class... Parts>
void logError(LogSite site, Parts... parts) {
    logParts("com.norvex.ZelkaCB: Error => ", site.operation, ", [Line ", site.line, "], ", parts...);
}

// The forms that name no operation, used at start-up and by a few database paths.
template <class... Parts>
void logInfoPlain(Parts... parts) {
    logParts("com.norvex.ZelkaCB => Info: ", parts...);
}

template <class... Parts>
void logErrorPlain(Parts... parts) {
    logParts("com.norvex.ZelkaCB => Error: ", parts...);
}

}  // namespace zelka

#import <Foundation/Foundation.h>

#include "simulator/frameworks/foundation/utf16.h"

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

namespace {

// "2026-01-31 12:34:56.789 Name[process:thread] "
std::string lineStart() {
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    tm local;
    localtime_r(&now.tv_sec, &local);
    char date[32], identifiers[64];
    strftime(date, sizeof date, "%F %T", &local);
    snprintf(identifiers, sizeof identifiers, "[%d:%d] ", getpid(), gettid());
    char milliseconds[16];
    snprintf(milliseconds, sizeof milliseconds, ".%03ld ", now.tv_nsec / 1000000);
    return std::string(date) + milliseconds + phone::utf8([[NSProcessInfo processInfo] processName]) + identifiers;
}

// One write a line, so that lines of several threads and processes stay whole and are there at once.
void writeWhole(const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(STDERR_FILENO, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;  // there is nowhere left to report it
        done += static_cast<size_t>(written);
    }
}

// The beginnings of what Foundation logs when it has caught an exception of somebody else's and goes on.
constexpr const char* kGoingOn[] = {"*** NSRunLoop ignoring exception", "*** NSTimer ignoring exception",
                                    "Problem posting ", "Problem running operation "};

bool tellsOfGoingOn(NSString* format) {
    for (const char* beginning : kGoingOn)
        if ([format hasPrefix:[NSString stringWithUTF8String:beginning]]) return true;
    return false;
}

}  // namespace

// Ahead of Foundation's own, behind NSLog, by definition order: that one drops a line that is no valid Unicode, where a
// phone's log takes any, and takes longer for the date than for all the rest.
void NSLogv(NSString* format, va_list arguments) {
    NSString* message = [[NSString alloc] initWithFormat:format arguments:arguments];
    std::string line = lineStart() + phone::utf8(message);
    [message release];
    if (line.back() != '\n') line += '\n';
    writeWhole(line);
    // A phone's process ends there, and so does this one: what went wrong would stay unnoticed.
    if (!tellsOfGoingOn(format)) return;
    writeWhole("*** Terminating app due to uncaught exception, which the line above names\n");
    abort();
}

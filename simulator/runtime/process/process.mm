#import <Foundation/Foundation.h>

#include "simulator/runtime/process/process.h"

#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/file_system/sqlite_vfs.h"
#include "simulator/runtime/process/device.h"
#include "simulator/runtime/process/pending_work.h"

namespace phone {
namespace {

[[noreturn]] void refuse(const std::string& message) {
    fprintf(stderr, "phone: %s\n", message.c_str());
    exit(1);
}

void raisedUncaught(NSException* exception) {
    fprintf(stderr, "*** Terminating app due to uncaught exception '%s', reason: '%s'\n", [[exception name] UTF8String],
            [[exception reason] UTF8String] ?: "(none)");
    fflush(stderr);
    abort();
}

std::string& ownIdentifier() {
    static std::string identifier;
    return identifier;
}

// The phone's language, then the same without its script or country, then English: Foundation looks for resources in
// these instead of this machine's.
void setLanguages() {
    NSString* language = [NSString stringWithUTF8String:device().language.c_str()];
    NSMutableArray* languages = [NSMutableArray arrayWithObject:language];
    const NSRange part = [language rangeOfString:@"-" options:NSBackwardsSearch];
    if (part.location != NSNotFound) [languages addObject:[language substringToIndex:part.location]];
    if (![languages containsObject:@"en"]) [languages addObject:@"en"];
    [NSUserDefaults setUserLanguages:languages];
}

void setUpFoundation() {
    NSSetUncaughtExceptionHandler(raisedUncaught);
    // A phone's Foundation says nothing about a file that is no property list.
    [[[NSProcessInfo processInfo] debugSet] addObject:@"NoWarn"];
    // The main run loop belongs to the thread that boots; a thread that queues work for it must find it made.
    [NSRunLoop currentRunLoop];
    setLanguages();
}

}  // namespace

const std::string& bundleIdentifier() { return ownIdentifier(); }

void boot(const std::filesystem::path& root, std::string bundleIdentifier) {
    std::error_code error;
    setRoot(std::filesystem::canonical(root, error));
    if (error) refuse(root.string() + ": " + error.message());
    const Result<Device> device = readDevice(phone::root());
    if (!device) refuse("not a phone root: " + device.error().message);
    setDevice(*device);
    if (chdir(phone::root().c_str()) != 0) refuse(phone::root().string() + ": cannot be the working directory");
    ownIdentifier() = std::move(bundleIdentifier);
    setenv("HOME", "/var/mobile", 1);
    if (const Status registered = registerPhoneFileSystem(); !registered) refuse(registered.error().message);
    @autoreleasepool {
        setUpFoundation();
    }
}

bool settle(double seconds) {
    NSTimeInterval end = [NSDate timeIntervalSinceReferenceDate] + seconds;
    while (pendingWork() > 0) {
        if ([NSDate timeIntervalSinceReferenceDate] >= end) return false;
        @autoreleasepool {
            // Work may finish on another thread without waking this one, hence the short turns.
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.005]];
        }
    }
    return true;
}

}  // namespace phone

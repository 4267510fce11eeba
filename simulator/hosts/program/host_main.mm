#import "simulator/hosts/program/host_main.h"

#import <Foundation/Foundation.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simulator/frameworks/core_foundation/darwin_notifications.h"
#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/remote/remote_control.h"
#include "simulator/runtime/process/injector.h"
#include "simulator/runtime/process/process.h"

// Declared by Foundation in debug builds alone, but always there.
extern "C" BOOL GSDebugAllocationActive(BOOL active);  // NOLINT(readability-redundant-declaration)

namespace hosts {
namespace {

struct Arguments {
    const char* root = nullptr;
    const char* bundleIdentifier = nullptr;
    bool withoutExtension = false;
};

bool parse(int argc, char** argv, Arguments& arguments) {
    for (int i = 1; i < argc; ++i) {
        const char* word = argv[i];
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(word, "--without-extension") == 0)
            arguments.withoutExtension = true;
        else if (std::strcmp(word, "--root") == 0 && hasValue)
            arguments.root = argv[++i];
        else if (std::strcmp(word, "--bundle-identifier") == 0 && hasValue)
            arguments.bundleIdentifier = argv[++i];
        else
            return false;
    }
    return arguments.root != nullptr;
}

// See remote/host_process.h.
void heedEnvironment() {
    if (std::getenv("PHONESIM_COUNT_OBJECTS") != nullptr) GSDebugAllocationActive(YES);
    const char* thread = std::getenv("PHONESIM_NOTIFICATIONS");
    if (thread != nullptr && std::strcmp(thread, "watcher") == 0)
        phone::deliverNotificationsOn(phone::DeliveryThread::watcher);
}

}  // namespace

int runHost(int argc, char** argv, const HostIdentity& identity) {
    Arguments arguments;
    arguments.bundleIdentifier = identity.bundleIdentifier;
    if (!parse(argc, argv, arguments)) {
        std::fprintf(stderr, "usage: %s --root ROOT [--without-extension] [--bundle-identifier ID]\n", argv[0]);
        return 2;
    }
    heedEnvironment();
    RemoteControl remote;
    remote.takeStandardStreams();
    @autoreleasepool {
        phone::boot(arguments.root, arguments.bundleIdentifier);
        if (!arguments.withoutExtension) remote.injected = phone::injectLibraries();
        UIApplicationStart(identity.principalClass, identity.delegateClass);
    }
    remote.serve();
    // As on a phone, nothing of a process that ends is torn down.
    ::_exit(0);
}

}  // namespace hosts

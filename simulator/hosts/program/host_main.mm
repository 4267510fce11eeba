#import "simulator/hosts/program/host_main.h"

#import <Foundation/Foundation.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "simulator/frameworks/uikit/uikit.h"
#include "simulator/hosts/remote/remote_control.h"
#include "simulator/runtime/process.h"

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

}  // namespace

int runHost(int argc, char** argv, const HostIdentity& identity) {
    Arguments arguments;
    arguments.bundleIdentifier = identity.bundleIdentifier;
    if (!parse(argc, argv, arguments)) {
        std::fprintf(stderr, "usage: %s --root ROOT [--without-extension] [--bundle-identifier ID]\n", argv[0]);
        return 2;
    }
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

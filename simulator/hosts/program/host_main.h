// What all host programs share: their command line and their life.
#pragma once

@class NSString;

namespace hosts {

struct HostIdentity {
    const char* bundleIdentifier;
    NSString* principalClass;  // of the application object; nil: UIApplication
    NSString* delegateClass;   // of its delegate; nil: the application itself
};

// Plays the process: boots in the phone root, injects libraries, launches the application, and serves the remote
// control on standard input and output (see remote/host_process.h) until it is asked to quit or its input ends.
//
//   PROGRAM --root ROOT [--without-extension] [--bundle-identifier ID]
//
// Returns the exit status: 0 after a quit, 2 for a wrong command line. Call it from main, on the main thread.
int runHost(int argc, char** argv, const HostIdentity& identity);

}  // namespace hosts

// The near end of a host program's remote control: one JSON object a line in, one a line out (see host_process.h).
#pragma once

#include <string>
#include <vector>

@class NSDictionary, NSMutableArray, NSString;

namespace hosts {

// One for the process, on the main thread.
class RemoteControl {
  public:
    // Keeps standard input and output for the remote control alone: whatever else the process prints goes to standard
    // error. Call it first of all.
    void takeStandardStreams();

    // Reports that the host is ready and runs the main run loop; commands are carried out in it, one after the other.
    // Returns when the host is to quit.
    void serve();

    // The libraries that were injected at the start.
    std::vector<std::string> injected;

  private:
    int input_ = -1;
    int output_ = -1;
};

}  // namespace hosts

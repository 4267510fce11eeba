// Ctrl-C and its like as something to look at, so that what is under way can be ended in order.
#pragma once

#include <stdexcept>

namespace tool {

// Thrown where work is given up because of a signal; main() ends the program by that signal.
class Stopped : public std::runtime_error {
  public:
    explicit Stopped(int signal) : std::runtime_error("stopped"), signal_(signal) {}
    int signal() const { return signal_; }

  private:
    int signal_;
};

// While it lives, SIGINT, SIGTERM and SIGHUP (unless that is ignored, as nohup has it) are noted instead of ending the
// program; the same signal again ends it at once. One at a time, on the main thread.
class StopSignal {
  public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    // The latest signal; 0 when none came.
    int received() const;
    // Throws Stopped when one came.
    void throwIfReceived() const;
    // Readable (poll) once one came.
    int descriptor() const;
};

// Ends the program as if the signal had come and nothing looked at it, so that a shell knows why it ended.
[[noreturn]] void endBySignal(int signal);

}  // namespace tool

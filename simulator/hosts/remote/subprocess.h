// A child process that is spoken to by pipes and ends with its owner.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "simulator/runtime/file_system/descriptor.h"
#include "simulator/runtime/result.h"

namespace hosts {

struct Invocation {
    std::filesystem::path program;
    std::vector<std::string> arguments;  // after the program's name
    // Added to (and winning over) this process's environment.
    std::vector<std::pair<std::string, std::string>> environment;
};

// Use it from one thread at a time. Destruction kills the process if it still runs and waits for its end; the process
// also ends when this one dies. Signals that a terminal sends do not reach it.
class Subprocess {
  public:
    // A program that cannot be executed is started nevertheless: it ends at once, with the reason on standard error.
    static phone::Result<Subprocess> start(const Invocation& invocation);

    Subprocess(Subprocess&& other) noexcept;
    Subprocess& operator=(Subprocess&&) = delete;
    ~Subprocess();

    int input() const { return input_.get(); }    // for writing; the process's standard input
    int output() const { return output_.get(); }  // for reading; its standard output
    // What it has written to standard error so far.
    std::string standardError() const;

    pid_t pid() const { return pid_; }
    bool running();
    // Waits for its end.
    void wait();
    // Its exit status, or 128 and the number of the signal that ended it. Only after its end.
    int exitStatus() const;
    // The same in words: " with status 1", ": Killed".
    std::string ending() const;

  private:
    Subprocess() = default;

    pid_t pid_ = -1;
    bool ended_ = false;
    int status_ = 0;  // of waitpid(2)
    phone::Descriptor input_, output_, errors_;
};

}  // namespace hosts

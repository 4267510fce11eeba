// That a phone is run by one process at a time.
#pragma once

#include <filesystem>

namespace tool {

// Held until destruction, or until the process ends in whatever way.
class RunLock {
  public:
    // Throws Problem, naming the process, when the phone is being run already.
    explicit RunLock(const std::filesystem::path& root);
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

  private:
    int file_;
};

}  // namespace tool

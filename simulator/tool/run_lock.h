// That a phone is run by one process at a time.
#pragma once

#include <filesystem>

#include "simulator/runtime/file_system/descriptor.h"
#include "simulator/runtime/result.h"

namespace tool {

// Held until destruction, or until the process ends in whatever way.
class RunLock {
  public:
    // Fails, naming the process, when the phone is being run already.
    static phone::Result<RunLock> take(const std::filesystem::path& root);
    // Whether a process holds it now.
    static bool isHeld(const std::filesystem::path& root);

  private:
    explicit RunLock(phone::Descriptor file) : file_(std::move(file)) {}
    phone::Descriptor file_;
};

}  // namespace tool

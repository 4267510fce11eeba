#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

#include "simulator/runtime/result.h"

namespace phone {

// Follows the notification log of one root from its end of this moment on. Reading takes no lock, so a follower that is
// stopped keeps no poster waiting.
class NotificationWatcher {
  public:
    // Fails when the log cannot be followed.
    [[nodiscard]] Status open(const std::filesystem::path& root);

    // Waits for the log to grow. Returns the names posted since the last call, oldest first; they count as unread until
    // markRead(). The following thread only.
    std::vector<std::string> next();
    void markRead();

    // The same without waiting: empty when nothing was posted. For a thread that waits for several things; the
    // descriptor is readable (poll) when the log has grown since the last call. Not beside next().
    std::vector<std::string> arrived();
    int descriptor() const { return changes_; }

    // Whether something was posted that is not marked read yet. Any thread.
    bool hasUnread() const;

  private:
    std::vector<std::string> readWholeLines();

    int file_ = -1;
    int changes_ = -1;
    std::atomic<long> markedTo_{0};  // behind the last name marked read
    long readTo_ = 0;                // behind the last name returned
};

}  // namespace phone

#include "simulator/runtime/notifications/notification_watcher.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "simulator/runtime/notifications/notification_log.h"

namespace phone {
namespace {

long sizeOf(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 ? static_cast<long>(status.st_size) : 0;
}

std::string readFrom(int file, long position) {
    std::string bytes(static_cast<size_t>(std::max(0L, sizeOf(file) - position)), '\0');
    size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count =
            pread(file, bytes.data() + filled, bytes.size() - filled, position + static_cast<long>(filled));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        filled += static_cast<size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace

Status NotificationWatcher::open(const std::filesystem::path& root) {
    const std::filesystem::path path = notificationLogPath(root);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    file_ = ::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
    if (file_ < 0) return failure(path.string() + ": " + strerror(errno));
    changes_ = inotify_init1(IN_CLOEXEC);
    if (changes_ < 0 || inotify_add_watch(changes_, path.c_str(), IN_MODIFY) < 0) {
        return failure(path.string() + ": cannot be watched: " + strerror(errno));
    }
    markedTo_ = readTo_ = sizeOf(file_);
    return {};
}

std::vector<std::string> NotificationWatcher::readWholeLines() {
    // A log that was emptied starts over.
    if (sizeOf(file_) < readTo_) markedTo_ = readTo_ = 0;
    const std::string bytes = readFrom(file_, readTo_);
    std::vector<std::string> names;
    size_t start = 0;
    for (size_t end = bytes.find('\n'); end != std::string::npos; start = end + 1, end = bytes.find('\n', start)) {
        if (end > start) names.push_back(bytes.substr(start, end - start));
    }
    readTo_ += static_cast<long>(start);
    return names;
}

std::vector<std::string> NotificationWatcher::next() {
    while (true) {
        std::vector<std::string> names = readWholeLines();
        if (!names.empty()) return names;
        // What was written since the read above has its event waiting already.
        alignas(inotify_event) char events[4096];
        if (read(changes_, events, sizeof events) < 0 && errno != EINTR) {
            fprintf(stderr, "notification log: cannot be followed any longer: %s\n", strerror(errno));
            abort();
        }
    }
}

std::vector<std::string> NotificationWatcher::arrived() {
    struct pollfd wait {
        changes_, POLLIN, 0
    };
    // The events first: what is written after they are taken makes new ones.
    alignas(inotify_event) char events[4096];
    while (poll(&wait, 1, 0) > 0 && read(changes_, events, sizeof events) > 0) {
    }
    return readWholeLines();
}

void NotificationWatcher::markRead() { markedTo_ = readTo_; }

bool NotificationWatcher::hasUnread() const { return file_ >= 0 && sizeOf(file_) > markedTo_; }

}  // namespace phone

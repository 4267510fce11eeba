#include "simulator/runtime/notifications/notification_log.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <unistd.h>

namespace phone {
namespace {

std::string problem(const std::filesystem::path& path) { return path.string() + ": " + strerror(errno); }

// One write, and no lock: the kernel keeps appending writes whole, and a poster that is stopped keeps nobody waiting.
std::string append(int file, const std::filesystem::path& path, const std::string& record) {
    const ssize_t written = write(file, record.data(), record.size());
    if (written < 0) return problem(path);
    return written == static_cast<ssize_t>(record.size()) ? "" : path.string() + ": the disk is full";
}

}  // namespace

std::filesystem::path notificationLogPath(const std::filesystem::path& root) {
    return root / "private/var/run/notifications";
}

std::string postNotification(const std::filesystem::path& root, std::string_view name) {
    if (name.empty() || name.find('\n') != std::string_view::npos || name.find('\0') != std::string_view::npos) {
        return "a notification's name is one line of text";
    }
    const std::filesystem::path path = notificationLogPath(root);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) return path.parent_path().string() + ": " + error.message();
    const int file = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (file < 0) return problem(path);
    // The leading line end parts it from a record that a full disk cut short.
    std::string message = append(file, path, "\n" + std::string(name) + "\n");
    close(file);
    return message;
}

}  // namespace phone

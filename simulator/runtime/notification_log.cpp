#include "simulator/runtime/notification_log.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace phone {
namespace {

std::string problem(const std::filesystem::path& path) { return path.string() + ": " + strerror(errno); }

// A line that was cut short (a full disk) is taken back, so that the next poster's is not glued to it.
std::string appendLine(int file, const std::filesystem::path& path, const std::string& line) {
    while (flock(file, LOCK_EX) != 0) {
        if (errno != EINTR) return problem(path);
    }
    struct stat before {};
    if (fstat(file, &before) != 0) return problem(path);
    const ssize_t written = write(file, line.data(), line.size());
    if (written == static_cast<ssize_t>(line.size())) return "";
    const std::string message = written < 0 ? problem(path) : path.string() + ": the disk is full";
    if (ftruncate(file, before.st_size) != 0) return message + "; and " + problem(path);
    return message;
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
    const std::string message = appendLine(file, path, std::string(name) + "\n");
    close(file);
    return message;
}

}  // namespace phone

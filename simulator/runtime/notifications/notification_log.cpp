#include "simulator/runtime/notifications/notification_log.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <unistd.h>

#include "simulator/runtime/file_system/descriptor.h"

namespace phone {
namespace {

Status systemFailure(const std::filesystem::path& path) { return failure(path.string() + ": " + strerror(errno)); }

// One write, and no lock: the kernel keeps appending writes whole, and a poster that is stopped keeps nobody waiting.
Status append(const Descriptor& file, const std::filesystem::path& path, const std::string& record) {
    const ssize_t written = write(file.get(), record.data(), record.size());
    if (written < 0) return systemFailure(path);
    if (written < static_cast<ssize_t>(record.size())) return failure(path.string() + ": the disk is full");
    return {};
}

}  // namespace

std::filesystem::path notificationLogPath(const std::filesystem::path& root) {
    return root / "private/var/run/notifications";
}

Status postNotification(const std::filesystem::path& root, std::string_view name) {
    if (name.empty() || name.find('\n') != std::string_view::npos || name.find('\0') != std::string_view::npos) {
        return failure("a notification's name is one line of text");
    }
    const std::filesystem::path path = notificationLogPath(root);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) return failure(path.parent_path().string() + ": " + error.message());
    const Descriptor file(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644));
    if (!file.isOpen()) return systemFailure(path);
    // The leading line end parts it from a record that a full disk cut short.
    return append(file, path, "\n" + std::string(name) + "\n");
}

}  // namespace phone

#include "simulator/tool/run_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace tool {
namespace {

constexpr const char* kFile = "private/var/run/phonesim.lock";

std::string holder(const phone::Descriptor& file) {
    char text[32];
    const ssize_t length = pread(file.get(), text, sizeof text, 0);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : "?";
}

phone::Status writeHolder(const phone::Descriptor& file, const std::filesystem::path& path) {
    const std::string process = std::to_string(getpid());
    if (ftruncate(file.get(), 0) == 0 && pwrite(file.get(), process.data(), process.size(), 0) >= 0) return {};
    return phone::failure(path.string() + ": " + std::generic_category().message(errno));
}

}  // namespace

bool RunLock::isHeld(const std::filesystem::path& root) {
    const phone::Descriptor file(open((root / kFile).c_str(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && flock(file.get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

phone::Result<RunLock> RunLock::take(const std::filesystem::path& root) {
    const std::filesystem::path path = root / kFile;
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    phone::Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    if (!file.isOpen() || flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (!file.isOpen() || errno != EWOULDBLOCK) {
            return phone::failure(path.string() + ": " + std::generic_category().message(errno));
        }
        return phone::failure(root.string() + ": is being run by process " + holder(file) +
                              " already; stop that first");
    }
    return writeHolder(file, path).map([&] { return RunLock(std::move(file)); });
}

}  // namespace tool

#include "simulator/tool/run_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "simulator/tool/verbs.h"

namespace tool {
namespace {

std::string holder(int file) {
    char text[32];
    const ssize_t length = pread(file, text, sizeof text, 0);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : "?";
}

[[noreturn]] void fail(const std::filesystem::path& path) {
    throw Problem(path.string() + ": " + std::generic_category().message(errno));
}

}  // namespace

RunLock::RunLock(const std::filesystem::path& root) {
    const std::filesystem::path path = root / "private/var/run/phonesim.lock";
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    file_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (file_ < 0) fail(path);
    if (flock(file_, LOCK_EX | LOCK_NB) != 0) {
        const int reason = errno;
        const std::string process = holder(file_);
        close(file_);
        errno = reason;
        if (reason != EWOULDBLOCK) fail(path);
        throw Problem(root.string() + ": is being run by process " + process + " already; stop that first");
    }
    const std::string process = std::to_string(getpid());
    if (ftruncate(file_, 0) != 0 || pwrite(file_, process.data(), process.size(), 0) < 0) {
        close(file_);
        fail(path);
    }
}

RunLock::~RunLock() { close(file_); }

}  // namespace tool

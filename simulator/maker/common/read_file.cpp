#include "simulator/maker/common/read_file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

#include "simulator/runtime/file_system/descriptor.h"

namespace maker {
namespace {

constexpr int kLongestWait = 100;  // milliseconds that a wait for bytes takes at most
constexpr std::size_t kPieceSize = 1 << 20;

// Whether there is something to read, if only the end.
bool isReady(const phone::Descriptor& file) {
    struct pollfd wait {
        file.get(), POLLIN, 0
    };
    return poll(&wait, 1, kLongestWait) > 0;
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& file, const Progress& progress) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) return failure(file.string() + ": is a folder");
    // Without waiting for somebody at the other end of a pipe.
    const phone::Descriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!opened.isOpen()) return failure(file.string() + ": " + std::generic_category().message(errno));
    std::string content;
    std::vector<char> piece(kPieceSize);
    for (;;) {
        reportGoingOn(progress);
        if (!isReady(opened)) continue;
        const ssize_t length = read(opened.get(), piece.data(), piece.size());
        if (length == 0) return content;
        if (length > 0) {
            content.append(piece.data(), static_cast<std::size_t>(length));
        } else if (errno != EINTR && errno != EAGAIN) {
            return failure(file.string() + ": " + std::generic_category().message(errno));
        }
    }
}

}  // namespace maker

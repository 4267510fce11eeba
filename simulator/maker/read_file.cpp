#include "simulator/maker/read_file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

namespace phone {
namespace {

constexpr int kTurn = 100;  // milliseconds that a wait for bytes takes at most
constexpr std::size_t kPiece = 1 << 20;

// An open file, closed in the end.
class OpenFile {
  public:
    // Without waiting for somebody at the other end of a pipe.
    explicit OpenFile(const std::filesystem::path& file)
        : descriptor_(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~OpenFile() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }

    // Whether there is something to read, if only the end.
    bool isReady() const {
        struct pollfd wait {
            descriptor_, POLLIN, 0
        };
        return poll(&wait, 1, kTurn) > 0;
    }

    // As read() answers.
    ssize_t read(std::vector<char>& piece) const { return ::read(descriptor_, piece.data(), piece.size()); }

  private:
    int descriptor_;
};

}  // namespace

Result<std::string> readFile(const std::filesystem::path& file, const Progress& progress) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) return Failure{file.string() + ": is a folder"};
    const OpenFile opened(file);
    if (!opened.isOpen()) return Failure{file.string() + ": " + std::generic_category().message(errno)};
    std::string content;
    std::vector<char> piece(kPiece);
    for (;;) {
        tellGoingOn(progress);
        if (!opened.isReady()) continue;
        const ssize_t length = opened.read(piece);
        if (length == 0) return content;
        if (length > 0) {
            content.append(piece.data(), static_cast<std::size_t>(length));
        } else if (errno != EINTR && errno != EAGAIN) {
            return Failure{file.string() + ": " + std::generic_category().message(errno)};
        }
    }
}

}  // namespace phone

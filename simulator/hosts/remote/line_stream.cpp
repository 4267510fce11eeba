#include "simulator/hosts/remote/line_stream.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace hosts {

bool LineStream::write(std::string_view line) const {
    const std::string bytes = std::string(line) + "\n";
    // A reader that has ended closes the pipe; that must be an error here and not a signal.
    struct sigaction ignore {};
    struct sigaction before {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignore, &before);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(output_, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) break;
        written += static_cast<std::size_t>(count);
    }
    ::sigaction(SIGPIPE, &before, nullptr);
    return written == bytes.size();
}

LineStream::Arrival LineStream::receive(double seconds) {
    struct pollfd wait {
        input_, POLLIN, 0
    };
    const int ready = ::poll(&wait, 1, static_cast<int>(std::ceil(std::max(0.0, seconds) * 1000)));
    if (ready < 0 && errno == EINTR) return Arrival::bytes;
    if (ready <= 0) return Arrival::nothing;
    char buffer[65536];
    ssize_t count = 0;
    do {
        count = ::read(input_, buffer, sizeof buffer);
    } while (count < 0 && errno == EINTR);
    if (count <= 0) return Arrival::end;
    unread_.append(buffer, static_cast<std::size_t>(count));
    return Arrival::bytes;
}

std::optional<std::string> LineStream::take() {
    const auto end = unread_.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

}  // namespace hosts

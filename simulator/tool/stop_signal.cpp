#include "simulator/tool/stop_signal.h"

#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <system_error>

namespace tool {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int kCount = sizeof kSignals / sizeof *kSignals;

volatile sig_atomic_t latest = 0;
volatile sig_atomic_t wakeUp = -1;
struct sigaction before[kCount];

void note(int signal) {
    const int error = errno;
    latest = signal;
    const std::uint64_t one = 1;
    // A full counter is readable already.
    [[maybe_unused]] const ssize_t written = write(wakeUp, &one, sizeof one);
    errno = error;
}

}  // namespace

StopSignal::StopSignal() {
    latest = 0;
    wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeUp < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
    struct sigaction action {};
    action.sa_handler = note;
    // Once each: the second time, the user does not want to wait for an orderly end.
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (int i = 0; i < kCount; ++i) {
        sigaction(kSignals[i], nullptr, &before[i]);
        if (kSignals[i] == SIGHUP && before[i].sa_handler == SIG_IGN) continue;
        sigaction(kSignals[i], &action, nullptr);
    }
}

StopSignal::~StopSignal() {
    for (int i = 0; i < kCount; ++i) sigaction(kSignals[i], &before[i], nullptr);
    close(wakeUp);
}

int StopSignal::received() const { return latest; }

void StopSignal::throwIfReceived() const {
    if (latest != 0) throw Stopped(latest);
}

int StopSignal::descriptor() const { return wakeUp; }

void endBySignal(int signal) {
    ::signal(signal, SIG_DFL);
    raise(signal);
    // Blocked, then; the status is the one that a shell would report.
    std::_Exit(128 + signal);
}

}  // namespace tool

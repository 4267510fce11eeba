#include "tests/support/standard_error.h"

#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test {
namespace {

int kept = -1;

void report(const char* text, size_t length) {
    if (write(kept, text, length) < 0) _exit(1);
}

// Runs in a signal's handler as well: what it calls takes no lock.
void showLog() {
    // What was reopened is buffered, and abort() loses what a buffer holds.
    fflush_unlocked(stderr);
    struct stat log {
    }, terminal{};
    const bool redirected = fstat(STDERR_FILENO, &log) == 0 && fstat(kept, &terminal) == 0 && S_ISREG(log.st_mode) &&
                            (log.st_dev != terminal.st_dev || log.st_ino != terminal.st_ino);
    if (!redirected) return;
    constexpr char kHeading[] = "This process has failed. Its log:\n";
    report(kHeading, strlen(kHeading));
    char text[4096];
    ssize_t length = 0;
    for (off_t at = 0; (length = pread(STDERR_FILENO, text, sizeof text, at)) > 0; at += length)
        report(text, static_cast<size_t>(length));
}

void aborted(int) { showLog(); }

void ended(int status, void*) {
    if (status != 0) showLog();
}

}  // namespace

int keepStandardError() {
    if (kept >= 0) return kept;
    kept = dup(STDERR_FILENO);
    // abort() goes on when the handler returns.
    signal(SIGABRT, aborted);
    on_exit(ended, nullptr);
    return kept;
}

}  // namespace test

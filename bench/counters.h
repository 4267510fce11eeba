// How often this process has called what costs time, by definition order: the functions of this program come before
// those of the libraries that it links with.
#pragma once

#include <atomic>

namespace bench {

struct Counters {
    std::atomic<bool> isOn{false};
    std::atomic<long> libraryMessages{0};  // sent through objc_msgSend, as only the library does
    std::atomic<long> allMessages{0};      // the platform's and the host's own among them
    std::atomic<long> opened{0}, stepped{0}, decoded{0}, drawn{0};
};

extern Counters counters;

}  // namespace bench

// libdispatch: one-time initialisation and the main queue.
#pragma once

#include <atomic>
#include <cstdint>

#include "src/platform/block.h"

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
void dispatch_once_f(std::intptr_t* once, void* context, void (*function)(void*));
void dispatch_async(dispatch_queue_s* queue, id block);
}

namespace zelka {

// Runs the function once per process, however many threads come at the same time; the others wait until it has run. The
// token must have static storage and start at zero.
inline void dispatchOnce(std::intptr_t& once, void* context, void (*function)(void* context)) {
    // A token of ~0 means done: libdispatch's own inline fast path.
    if (std::atomic_ref(once).load(std::memory_order_acquire) == ~static_cast<std::intptr_t>(0)) return;
    dispatch_once_f(&once, context, function);
}

inline void dispatchOnce(std::intptr_t& once, void (*function)()) {
    dispatchOnce(once, reinterpret_cast<void*>(function),
                 [](void* context) { reinterpret_cast<void (*)()>(context)(); });
}

// Runs the block on the main thread, after what was queued there before. Returns at once; the queue keeps a reference
// to the block until it has run. Any thread.
inline void dispatchToMain(const Owned<Block>& block) { dispatch_async(&_dispatch_main_q, block.get().object); }

}  // namespace zelka

#include <atomic>

#include "simulator/frameworks/dispatch/dispatch.h"
#include "simulator/frameworks/dispatch/invoke_block.h"

namespace {

constexpr dispatch_once_t fresh = 0;
constexpr dispatch_once_t running = 1;
constexpr dispatch_once_t done = ~static_cast<dispatch_once_t>(0);

}  // namespace

void dispatch_once_f(dispatch_once_t* token, void* context, dispatch_function_t work) {
    std::atomic_ref<dispatch_once_t> state(*token);
    dispatch_once_t seen = fresh;
    if (state.compare_exchange_strong(seen, running)) {
        work(context);
        state.store(done);
        state.notify_all();
        return;
    }
    while (seen != done) {
        state.wait(seen);
        seen = state.load();
    }
}

void dispatch_once(dispatch_once_t* token, dispatch_block_t block) { dispatch_once_f(token, block, invokeBlock); }

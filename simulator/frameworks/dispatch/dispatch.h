#pragma once

// The part of libdispatch that the phone's processes use here: one-time initialisation and the main queue.

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct dispatch_queue_s* dispatch_queue_t;
typedef intptr_t dispatch_once_t;
typedef void (*dispatch_function_t)(void* context);
// A block object; the simulator is compiled without the blocks extension.
typedef void* dispatch_block_t;

extern struct dispatch_queue_s _dispatch_main_q;
static inline dispatch_queue_t dispatch_get_main_queue(void) { return &_dispatch_main_q; }

// Runs the work once in the process's life; callers who come while it runs wait. The token reads ~0 once it is done,
// which callers' inlined fast paths rely on.
void dispatch_once(dispatch_once_t* token, dispatch_block_t block);
void dispatch_once_f(dispatch_once_t* token, void* context, dispatch_function_t work);

// Queues work for the main run loop, first in, first out. The block is copied. Any thread.
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);

#ifdef __cplusplus
}
#endif

// Blocks made from C++ callables, in the layout of Clang's "Block Implementation Specification" (Block-ABI-Apple).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <type_traits>
#include <utility>

#include "src/platform/owned.h"

extern "C" {
extern void* _NSConcreteStackBlock[];
void* _Block_copy(const void* block);
}

namespace zelka {

// A block object that takes no arguments and returns nothing: dispatch_block_t.
struct Block : NSObject {};

namespace detail {

// The flag BLOCK_HAS_COPY_DISPOSE, by which the compiler says that the descriptor has both helpers. The other bits of a
// block's flags are the runtime's to write, but for those of the compiler that do not concern a block like this.
constexpr std::int32_t kBlockHasCopyDispose = 1 << 25;

struct BlockDescriptor {
    unsigned long reserved;
    unsigned long size;
    void (*copy)(void* destination, const void* source);
    void (*dispose)(const void* block);
};

// A block as the compiler lays it out on the stack, with the callable as its one captured variable.
template <class Callable>
struct BlockLiteral {
    void* isa;
    std::int32_t flags;
    std::int32_t reserved;
    void (*invoke)(void* block);
    const BlockDescriptor* descriptor;
    Callable callable;

    static void run(void* block) { static_cast<BlockLiteral*>(block)->callable(); }

    // Called by _Block_copy, once, after it has copied the bytes: a copy of a heap block adds a reference only. The
    // stack's callable is moved from, because makeBlock has no further use for it.
    static void copy(void* destination, const void* source) {
        auto* literal = static_cast<BlockLiteral*>(const_cast<void*>(source));
        new (&static_cast<BlockLiteral*>(destination)->callable) Callable(std::move(literal->callable));
    }

    // Called before the runtime frees the heap block.
    static void dispose(const void* block) {
        static_cast<BlockLiteral*>(const_cast<void*>(block))->callable.~Callable();
    }

    static constexpr BlockDescriptor kDescriptor{0, sizeof(BlockLiteral), &copy, &dispose};
};

}  // namespace detail

// A block that runs the callable, which moves into it and is destroyed with it, on whichever thread gives up the last
// reference. Ends the process when there is no memory for it.
template <class Callable>
[[nodiscard]] Owned<Block> makeBlock(Callable callable) {
    static_assert(std::is_nothrow_move_constructible_v<Callable>, "the runtime's C code copies the block");
    static_assert(alignof(Callable) <= alignof(std::max_align_t), "the runtime aligns a block as malloc does");
    using Literal = detail::BlockLiteral<Callable>;
    Literal literal{&_NSConcreteStackBlock, detail::kBlockHasCopyDispose, 0,
                    &Literal::run,          &Literal::kDescriptor,        std::move(callable)};
    void* block = _Block_copy(&literal);
    if (block == nullptr) std::abort();
    return adopt(Block{{static_cast<id>(block)}});
}

}  // namespace zelka

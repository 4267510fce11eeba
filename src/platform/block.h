// Blocks made from C++ callables, in the layout that the public block ABI gives.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

#include "src/platform/object.h"

extern "C" void* _NSConcreteMallocBlock[];

// A block object that takes no arguments and returns nothing: dispatch_block_t.
struct Block : NSObject {};

namespace platform {

struct BlockDescriptor {
    std::uintptr_t reserved;
    std::uintptr_t size;
    void (*copy)(void* destination, const void* source);
    void (*dispose)(const void* block);
};

template <class Callable>
struct BlockLayout {
    void* isa;
    std::int32_t flags;
    std::int32_t reserved;
    void (*invoke)(void* block);
    const BlockDescriptor* descriptor;
    Callable* callable;

    static void run(void* block) { (*static_cast<BlockLayout*>(block)->callable)(); }

    // A heap block is never copied again: copying it adds a reference.
    static void copy(void*, const void*) {}

    static void dispose(const void* block) { delete static_cast<const BlockLayout*>(block)->callable; }

    static constexpr BlockDescriptor description{0, sizeof(void*) * 4 + sizeof(std::int32_t) * 2, &copy, &dispose};
};

// Of the block ABI: the block lives on the heap, has copy and dispose helpers, and counts one reference (the count's
// unit is 2, its low bit means "being freed").
constexpr std::int32_t kBlockNeedsFree = 1 << 24;
constexpr std::int32_t kBlockHasCopyDispose = 1 << 25;
constexpr std::int32_t kBlockOneReference = 2;

}  // namespace platform

// A block that runs the callable, which moves into it and is destroyed with it, on whichever thread lets go of it last
// (+1).
template <class Callable>
Owned<Block> makeBlock(Callable callable) {
    using Layout = platform::BlockLayout<Callable>;
    static_assert(Layout::description.size == sizeof(Layout));
    // The block's memory is given back by the platform, with free.
    auto* block = static_cast<Layout*>(std::malloc(sizeof(Layout)));
    if (block == nullptr) std::abort();
    new (block) Layout{&_NSConcreteMallocBlock,
                       platform::kBlockNeedsFree | platform::kBlockHasCopyDispose | platform::kBlockOneReference,
                       0,
                       &Layout::run,
                       &Layout::description,
                       new Callable(std::move(callable))};
    return Owned<Block>::adopt(Block{{reinterpret_cast<id>(block)}});
}

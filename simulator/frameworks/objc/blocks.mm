#import <Foundation/Foundation.h>

#include "simulator/frameworks/objc/runtime.h"

#include <stdlib.h>
#include <string.h>

namespace {

// A block and its descriptor, as Clang's "Block Implementation Specification" lays them out.
struct Descriptor {
    unsigned long reserved;
    unsigned long size;
    void (*copy)(void* to, const void* from);  // these two only with hasCopyDispose
    void (*dispose)(const void* block);
};

struct Block {
    void* isa;
    int flags;
    int reserved;
    void (*invoke)(void);
    const Descriptor* descriptor;
};

// The flags' low half counts references in steps of two; its lowest bit is the ABI's "being freed".
constexpr int countMask = 0xfffe;
constexpr int countOne = 2;
constexpr int needsFree = 1 << 24;
constexpr int hasCopyDispose = 1 << 25;
constexpr int isGlobal = 1 << 28;

Block* heapCopy(const Block* block) {
    auto* copy = static_cast<Block*>(malloc(block->descriptor->size));
    if (copy == nullptr) abort();
    memcpy(copy, block, block->descriptor->size);
    copy->isa = _NSConcreteMallocBlock;
    copy->flags = (block->flags & ~(countMask | 1)) | needsFree | countOne;
    if (copy->flags & hasCopyDispose) block->descriptor->copy(copy, block);
    return copy;
}

// A count that has reached its end stays there: such a block is never freed.
void retainBlock(Block* block) {
    int flags = __atomic_load_n(&block->flags, __ATOMIC_RELAXED);
    do {
        if ((flags & countMask) == countMask) return;
    } while (!__atomic_compare_exchange_n(&block->flags, &flags, flags + countOne, true, __ATOMIC_RELAXED,
                                          __ATOMIC_RELAXED));
}

// Returns whether this was the last reference.
bool releaseBlock(Block* block) {
    int flags = __atomic_load_n(&block->flags, __ATOMIC_RELAXED);
    do {
        if ((flags & countMask) == countMask) return false;
        if ((flags & countMask) == 0) {
            fprintf(stderr, "block %p released more often than it was owned\n", static_cast<void*>(block));
            abort();
        }
    } while (!__atomic_compare_exchange_n(&block->flags, &flags, flags - countOne, true, __ATOMIC_ACQ_REL,
                                          __ATOMIC_RELAXED));
    return (flags & countMask) == countOne;
}

}  // namespace

void* _Block_copy(const void* block) {
    auto* source = static_cast<Block*>(const_cast<void*>(block));
    if (source == nullptr) return nullptr;
    if (source->flags & isGlobal) return source;
    if ((source->flags & needsFree) == 0) return heapCopy(source);
    retainBlock(source);
    return source;
}

void _Block_release(const void* block) {
    auto* owned = static_cast<Block*>(const_cast<void*>(block));
    if (owned == nullptr || (owned->flags & needsFree) == 0) return;
    if (!releaseBlock(owned)) return;
    if (owned->flags & hasCopyDispose) owned->descriptor->dispose(owned);
    free(owned);
}

// The classes behind the isa symbols. Blocks keep their own count and memory, so everything that Foundation would do to
// an object's is the block's own here.
@interface PhoneBlock : NSObject
@end

@implementation PhoneBlock
- (id)retain {
    return static_cast<id>(_Block_copy(self));
}
- (oneway void)release {
    _Block_release(self);
}
- (NSUInteger)retainCount {
    const int flags = reinterpret_cast<Block*>(self)->flags;
    return (flags & needsFree) != 0 ? static_cast<NSUInteger>((flags & countMask) / countOne) : 1;
}
- (id)copy {
    return static_cast<id>(_Block_copy(self));
}
- (id)copyWithZone:(NSZone*)zone {
    return static_cast<id>(_Block_copy(self));
}
- (NSZone*)zone {
    return NSDefaultMallocZone();
}
// Never called by release; whoever calls it by hand would free memory that Foundation did not allocate.
- (void)dealloc {
    [NSException raise:NSInternalInconsistencyException format:@"a block is deallocated by releasing it"];
    [super dealloc];
}
@end

@interface PhoneStackBlock : PhoneBlock
@end
@implementation PhoneStackBlock
// A block on the stack dies with its frame; retaining one does not keep it, as on a phone.
- (id)retain {
    return self;
}
@end

@interface PhoneMallocBlock : PhoneBlock
@end
@implementation PhoneMallocBlock
@end

@interface PhoneGlobalBlock : PhoneBlock
@end
@implementation PhoneGlobalBlock
@end

// A block's isa is the address of one of these symbols: each is its class.
#define BLOCK_CLASS(symbol, cls) \
    __asm__(".globl " #symbol "\n.type " #symbol ", %object\n.set " #symbol ", _OBJC_CLASS_" #cls "\n")
BLOCK_CLASS(_NSConcreteStackBlock, PhoneStackBlock);
BLOCK_CLASS(_NSConcreteMallocBlock, PhoneMallocBlock);
BLOCK_CLASS(_NSConcreteGlobalBlock, PhoneGlobalBlock);

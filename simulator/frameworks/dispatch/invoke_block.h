#pragma once

// Calls a block that takes nothing. Its own type is its maker's, so the sanitizer has nothing to compare with.
__attribute__((no_sanitize("function"))) inline void invokeBlock(void* block) {
    // As the public Block ABI lays a block out.
    struct Head {
        void* isa;
        int flags, reserved;
        void (*invoke)(void* block);
    };
    static_cast<Head*>(block)->invoke(block);
}

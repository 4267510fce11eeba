// Message sending for arm64: finds the method, then jumps to it with every argument as the caller left it.

#include "simulator/frameworks/objc/argument_registers.inc"

#if defined(__aarch64__)

    .text

// One function under two names: a structure's address travels in x8 and shifts no argument.
    .globl objc_msgSend
    .globl objc_msgSend_stret
    .type objc_msgSend, %function
    .type objc_msgSend_stret, %function
    .p2align 4
objc_msgSend:
objc_msgSend_stret:
    .cfi_startproc
    cbz x0, 1f
    save_arguments
    bl objc_msg_lookup
    mov x16, x0
    restore_arguments
    br x16
1:  mov x1, #0
    movi v0.2d, #0
    movi v1.2d, #0
    movi v2.2d, #0
    movi v3.2d, #0
    ret
    .cfi_endproc
    .size objc_msgSend, .-objc_msgSend

#endif

    .section .note.GNU-stack, "", %progbits

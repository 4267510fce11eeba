// Message sending for arm64: finds the method, then jumps to it with every argument as the caller left it.

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
    stp x29, x30, [sp, #-224]!
    .cfi_def_cfa_offset 224
    .cfi_offset x29, -224
    .cfi_offset x30, -216
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    str x8, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    bl objc_msg_lookup
    mov x16, x0
    ldp x0, x1, [sp, #16]
    ldp x2, x3, [sp, #32]
    ldp x4, x5, [sp, #48]
    ldp x6, x7, [sp, #64]
    ldr x8, [sp, #80]
    ldp q0, q1, [sp, #96]
    ldp q2, q3, [sp, #128]
    ldp q4, q5, [sp, #160]
    ldp q6, q7, [sp, #192]
    ldp x29, x30, [sp], #224
    .cfi_def_cfa_offset 0
    .cfi_restore x29
    .cfi_restore x30
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

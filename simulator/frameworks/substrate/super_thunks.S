// A fixed stock of entry points, one for each hook of an inherited method. Entry n asks superImplementation(n) for the
// superclass's method of this moment and jumps to it with every argument as the caller left it.

#define THUNK_COUNT 256

#if defined(__x86_64__)

    .text
    .type superThunkCommon, @function
    .p2align 4
superThunkCommon:  // r11: the entry's number
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $192, %rsp
    movq %rdi, (%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movq %r10, 56(%rsp)
    movaps %xmm0, 64(%rsp)
    movaps %xmm1, 80(%rsp)
    movaps %xmm2, 96(%rsp)
    movaps %xmm3, 112(%rsp)
    movaps %xmm4, 128(%rsp)
    movaps %xmm5, 144(%rsp)
    movaps %xmm6, 160(%rsp)
    movaps %xmm7, 176(%rsp)
    movq %r11, %rdi
    call superImplementation@PLT
    movq %rax, %r11
    movq (%rsp), %rdi
    movq 8(%rsp), %rsi
    movq 16(%rsp), %rdx
    movq 24(%rsp), %rcx
    movq 32(%rsp), %r8
    movq 40(%rsp), %r9
    movq 48(%rsp), %rax
    movq 56(%rsp), %r10
    movaps 64(%rsp), %xmm0
    movaps 80(%rsp), %xmm1
    movaps 96(%rsp), %xmm2
    movaps 112(%rsp), %xmm3
    movaps 128(%rsp), %xmm4
    movaps 144(%rsp), %xmm5
    movaps 160(%rsp), %xmm6
    movaps 176(%rsp), %xmm7
    leave
    .cfi_def_cfa %rsp, 8
    .cfi_restore %rbp
    jmp *%r11
    .cfi_endproc
    .size superThunkCommon, .-superThunkCommon

    .globl superThunks
    .hidden superThunks
    .type superThunks, @function
    .p2align 4
superThunks:
    .set number, 0
    .rept THUNK_COUNT
    .p2align 4
    movl $number, %r11d
    jmp superThunkCommon
    .set number, number + 1
    .endr
    .size superThunks, .-superThunks

    .section .note.GNU-stack, "", @progbits

#elif defined(__aarch64__)

    .text
    .type superThunkCommon, %function
    .p2align 4
superThunkCommon:  // x16: the entry's number
    .cfi_startproc
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
    mov x0, x16
    bl superImplementation
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
    .cfi_endproc
    .size superThunkCommon, .-superThunkCommon

    .globl superThunks
    .hidden superThunks
    .type superThunks, %function
    .p2align 4
superThunks:
    .set number, 0
    .rept THUNK_COUNT
    .p2align 4
    mov x16, #number
    b superThunkCommon
    .set number, number + 1
    .endr
    .size superThunks, .-superThunks

    .section .note.GNU-stack, "", %progbits

#endif

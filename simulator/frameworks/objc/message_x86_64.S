// Message sending for x86-64: finds the method, then jumps to it with every argument as the caller left it.

#if defined(__x86_64__)

    .text

// Keeps everything that can carry an argument: the integer registers, the vector registers, al (the number of vector
// registers of a variadic call) and r10 (a closure's static chain).
.macro save_arguments
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
.endm

.macro restore_arguments
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
.endm

    .globl objc_msgSend
    .type objc_msgSend, @function
    .p2align 4
objc_msgSend:
    .cfi_startproc
    testq %rdi, %rdi
    je 1f
    save_arguments
    call objc_msg_lookup@PLT
    movq %rax, %r11
    restore_arguments
    jmp *%r11
1:  xorl %eax, %eax
    xorl %edx, %edx
    xorps %xmm0, %xmm0
    xorps %xmm1, %xmm1
    ret
    .cfi_endproc
    .size objc_msgSend, .-objc_msgSend

// The address of the structure comes first: receiver and selector are the second and third argument.
    .globl objc_msgSend_stret
    .type objc_msgSend_stret, @function
    .p2align 4
objc_msgSend_stret:
    .cfi_startproc
    testq %rsi, %rsi
    je 1f
    save_arguments
    movq %rsi, %rdi
    movq %rdx, %rsi
    call objc_msg_lookup@PLT
    movq %rax, %r11
    restore_arguments
    jmp *%r11
1:  movq %rdi, %rax
    ret
    .cfi_endproc
    .size objc_msgSend_stret, .-objc_msgSend_stret

#endif

    .section .note.GNU-stack, "", %progbits

// Message sending for x86-64: finds the method, then jumps to it with every argument as the caller left it.

#include "simulator/frameworks/objc/argument_registers.inc"

#if defined(__x86_64__)

    .text

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

// Message sending for 32-bit arm: finds the method, then jumps to it with every argument as the caller left it.

#include "simulator/frameworks/objc/argument_registers.inc"

#if defined(__arm__)

    .syntax unified
    .arm
    .text

    .globl objc_msgSend
    .type objc_msgSend, %function
    .p2align 4
objc_msgSend:
    .fnstart
    cmp r0, #0
    beq 1f
    save_arguments
    bl objc_msg_lookup
    mov ip, r0
    restore_arguments
    bx ip
1:  mov r1, #0
    bx lr
    .fnend
    .size objc_msgSend, .-objc_msgSend

// The address of the structure comes first: receiver and selector are the second and third argument.
    .globl objc_msgSend_stret
    .type objc_msgSend_stret, %function
    .p2align 4
objc_msgSend_stret:
    .fnstart
    cmp r1, #0
    bxeq lr
    save_arguments
    mov r0, r1
    mov r1, r2
    bl objc_msg_lookup
    mov ip, r0
    restore_arguments
    bx ip
    .fnend
    .size objc_msgSend_stret, .-objc_msgSend_stret

#endif

    .section .note.GNU-stack, "", %progbits

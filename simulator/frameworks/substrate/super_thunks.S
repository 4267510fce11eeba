// A fixed stock of entry points, one for each hook of an inherited method. Entry n asks superImplementation(n) for the
// superclass's method of this moment and jumps to it with every argument as the caller left it.

#include "simulator/frameworks/objc/argument_registers.inc"

#define THUNK_COUNT 256

#if defined(__x86_64__)

    .text
    .type superThunkCommon, @function
    .p2align 4
superThunkCommon:  // r11: the entry's number
    .cfi_startproc
    save_arguments
    movq %r11, %rdi
    call superImplementation@PLT
    movq %rax, %r11
    restore_arguments
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
    save_arguments
    mov x0, x16
    bl superImplementation
    mov x16, x0
    restore_arguments
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

#elif defined(__arm__)

    .syntax unified
    .arm
    .text
    .type superThunkCommon, %function
    .p2align 4
superThunkCommon:  // ip: the entry's number
    .fnstart
    save_arguments
    mov r0, ip
    bl superImplementation
    mov ip, r0
    restore_arguments
    bx ip
    .fnend
    .size superThunkCommon, .-superThunkCommon

    .globl superThunks
    .hidden superThunks
    .type superThunks, %function
    .p2align 4
superThunks:
    .set number, 0
    .rept THUNK_COUNT
    .p2align 4
    movw ip, #number
    b superThunkCommon
    .set number, number + 1
    .endr
    .size superThunks, .-superThunks

    .section .note.GNU-stack, "", %progbits

#endif

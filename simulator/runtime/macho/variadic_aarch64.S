// Entries for a phone's variadic calls on arm64: every argument after the named ones lies on the stack, in a slot of
// eight bytes each, where the caller's stack pointer points. The functions behind them get that place as their last
// argument (variadic.cpp).

#if defined(__aarch64__)

    .text

.macro entry name, function, place
    .globl \name
    .hidden \name
    .type \name, %function
    .p2align 4
\name:
    .cfi_startproc
    mov \place, sp
    b \function
    .cfi_endproc
    .size \name, .-\name
.endm

entry phoneNSLog, logWithStackArguments, x1
entry phoneSnprintf, printWithStackArguments, x3

#endif

    .section .note.GNU-stack, "", %progbits

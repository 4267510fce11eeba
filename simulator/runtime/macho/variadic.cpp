// Variadic functions as a phone's code calls them on arm64, with the arguments on the stack.

#if defined(__aarch64__)

#include <dlfcn.h>
#include <stdarg.h>
#include <stdio.h>

namespace {

// The list that reads all its arguments from there: no register has one left (AAPCS64, "Variable argument lists").
va_list listFrom(void* stack) {
    va_list list{};
    list.__stack = stack;
    return list;
}

}  // namespace

extern "C" {

// NSLog(format, ...). Foundation lies above this folder, and so is found by name.
[[gnu::visibility("hidden")]] void logWithStackArguments(void* format, void* stack) {
    static const auto log = reinterpret_cast<void (*)(void*, va_list)>(dlsym(RTLD_DEFAULT, "NSLogv"));
    log(format, listFrom(stack));
}

[[gnu::visibility("hidden")]] int printWithStackArguments(char* text, size_t size, const char* format, void* stack) {
    return vsnprintf(text, size, format, listFrom(stack));
}
}

#endif

// The program of all targets that need the phone: which one it plays is the name by which it is called.

#import <Foundation/Foundation.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/phone/target.h"
#include "simulator/runtime/process/library_loader.h"
#include "simulator/runtime/process/process.h"

extern "C" void __sanitizer_set_report_fd(void* descriptor) __attribute__((weak));
// There only in a program of the fuzzer's.
extern "C" int LLVMFuzzerRunDriver(int*, char***, int (*)(const uint8_t*, size_t)) __attribute__((weak));
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

struct Target {
    const char* name;
    void (*run)(fuzz::Bytes);
};
constexpr Target targets[] = {
    {"calls", fuzz::calls},         {"databases", fuzz::databases},   {"device", fuzz::device},
    {"encodings", fuzz::encodings}, {"names", fuzz::names},           {"settings", fuzz::settings},
    {"texts", fuzz::texts},         {"thumbnails", fuzz::thumbnails}, {"vcards", fuzz::vcards}};

int terminal = STDERR_FILENO;
const Target* chosen = nullptr;

void choose(const std::string& name) {
    for (const Target& target : targets) {
        if (name == target.name) chosen = &target;
    }
    if (chosen != nullptr) return;
    fprintf(stderr, "%s: not a target; call this program by one of the names\n", name.c_str());
    for (const Target& target : targets) fprintf(stderr, "  %s\n", target.name);
    exit(2);
}

bool given(int argc, char** argv, const char* option) {
    for (int i = 1; i < argc; ++i) {
        if (strncmp(argv[i], option, strlen(option)) == 0) return true;
    }
    return false;
}

// The process moves to another directory and gives its standard error to the phone's log.
void makeIndependent(int* argc, char*** argv) {
    static std::vector<std::string> arguments;
    static std::vector<char*> pointers;
    for (int i = 0; i < *argc; ++i) {
        const char* argument = (*argv)[i];
        arguments.push_back(i == 0 || argument[0] == '-' ? argument : std::filesystem::absolute(argument).string());
    }
    if (!given(*argc, *argv, "-close_fd_mask=")) arguments.push_back("-close_fd_mask=2");
    if (!given(*argc, *argv, "-artifact_prefix="))
        arguments.push_back("-artifact_prefix=" + std::filesystem::current_path().string() + "/");
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    *argc = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);
    *argv = pointers.data();
}

void bootPhone() {
    std::filesystem::create_symlink("/dev/null", fuzz::root().host("/tmp/ZelkaCB.log"));
    phone::boot(fuzz::root().path(), "com.apple.springboard");
    @autoreleasepool {
        const phone::Status loaded = phone::loadLibrary(ZELKA_LIBRARY);
        if (!loaded) fuzz::fail(loaded.error().message);
    }
}

}  // namespace

namespace fuzz {

void fail(const std::string& message) {
    dprintf(terminal, "== WRONG: %s\n", message.c_str());
    abort();
}

const test::TempRoot& root() {
    static const test::TempRoot phone;
    return phone;
}

std::string text(Bytes input) { return std::string(input.begin(), input.end()); }

}  // namespace fuzz

int LLVMFuzzerInitialize(int* argc, char*** argv) {
    terminal = dup(STDERR_FILENO);
    if (__sanitizer_set_report_fd != nullptr)
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the sanitizers want the number so
        __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(terminal)));
    choose(std::filesystem::path((*argv)[0]).filename().string());
    if (LLVMFuzzerRunDriver != nullptr) makeIndependent(argc, argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool booted = (bootPhone(), true);
    (void)booted;
    @autoreleasepool {
        @try {
            chosen->run({data, size});
        } @catch (NSException* exception) {
            fuzz::fail(std::string("uncaught ") + [[exception name] UTF8String] + ": " +
                       [[exception reason] UTF8String]);
        }
    }
    return 0;
}

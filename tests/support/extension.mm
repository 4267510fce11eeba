#include "tests/support/extension.h"

#include "simulator/runtime/process/library_loader.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/library_path.h"
#include "tests/support/standard_error.h"

extern "C" void __sanitizer_set_report_fd(void* descriptor) __attribute__((weak));

namespace test {

ExtensionTest::~ExtensionTest() { [pool_ drain]; }

void ExtensionTest::boot(const char* bundleIdentifier) {
    bootPhone(bundleIdentifier);
    loadExtension();
}

void ExtensionTest::bootPhone(const char* bundleIdentifier) {
    std::error_code error;
    std::filesystem::copy(ZELKA_BUNDLE, root.host("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle"),
                          std::filesystem::copy_options::recursive, error);
    ASSERT_FALSE(error) << error.message();
    const int standardError = keepStandardError();
    if (__sanitizer_set_report_fd != nullptr)
        __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(standardError)));
    phone::boot(root.path(), bundleIdentifier);
    pool_ = [[NSAutoreleasePool alloc] init];
}

void ExtensionTest::loadExtension() { ASSERT_EQ(phone::problemOf(phone::loadLibrary(libraryPath())), ""); }

int ExtensionTest::loggedLines(const std::string& ending) const {
    const std::string lines = log();
    const std::string wanted = ending + "\n";
    int found = 0;
    for (size_t at = lines.find(wanted); at != std::string::npos; at = lines.find(wanted, at + 1)) ++found;
    return found;
}

}  // namespace test

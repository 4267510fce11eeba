// A process that plays the phone with the library loaded into it, the way the phone's injector would.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_root.h"
#include "tests/support/zelkacb.h"

namespace test {

// One process, one root: every test of a fixture derived from this runs in a process of its own (each_apart.cpp).
class ExtensionTest : public testing::Test {
  protected:
    explicit ExtensionTest(const char* profile = "iphone6-8.4") : root(profile) {}
    ~ExtensionTest() override;

    // Puts the preference bundle into the root and becomes its process of that identifier. What the library logs in a
    // served process goes to the log file from now on; sanitizers still report to the terminal, and a process that
    // fails shows its log there.
    void boot(const char* bundleIdentifier = "com.apple.springboard");
    // The two halves of it: the process as it is without the library, and the library.
    void bootPhone(const char* bundleIdentifier);
    void loadExtension();
    // What the log file holds so far.
    std::string log() const { return root.read("/tmp/ZelkaCB.log"); }
    // How many lines of the log end in the text.
    int loggedLines(const std::string& ending) const;
    ZLKCBSettings* settings() const { return [objc_getClass("ZLKCBSettings") sharedSettings]; }

    TempRoot root;

  private:
    NSAutoreleasePool* pool_ = nil;
};

}  // namespace test

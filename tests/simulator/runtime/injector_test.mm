#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "simulator/runtime/process/injector.h"
#include "simulator/runtime/process/library_loader.h"
#include "simulator/runtime/process/process.h"
#include "tests/support/temp_root.h"

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

const std::string folder = "/Library/MobileSubstrate/DynamicLibraries/";

std::string filter(const std::string& bundles) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Filter</key><dict><key>Bundles</key>" + bundles +
           "</dict></dict></plist>";
}

class Injector : public testing::Test {
  protected:
    void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
    void TearDown() override { [pool_ drain]; }

    void install(const std::string& name, const std::string& filterText, const char* library,
                 const char* extension = ".so") const {
        root_.write(folder + name + ".plist", filterText);
        if (library != nullptr) fs::copy_file(library, root_.host(folder + name + extension));
    }
    std::string placeOf(const std::string& file) const { return root_.host(folder + file); }

    // Loads into a process with this identifier; what was told goes to `told`.
    Paths inject(const std::string& bundle, std::string* told = nullptr) {
        phone::boot(root_.path(), bundle);
        testing::internal::CaptureStderr();
        const Paths loaded = phone::injectLibraries();
        const std::string text = testing::internal::GetCapturedStderr();
        if (told != nullptr) *told = text;
        return loaded;
    }

    test::TempRoot root_;
    NSAutoreleasePool* pool_ = nil;
};

const std::string served = "<array><string>com.other</string><string>com.example.host</string></array>";

TEST_F(Injector, LoadsWhatNamesThisProcessAndRunsItsInitialisers) {
    install("Good", filter(served), GOOD_LIBRARY);
    std::string told;
    EXPECT_EQ(inject("com.example.host", &told), Paths{placeOf("Good.so")});
    EXPECT_EQ(told, "");
    EXPECT_STREQ(getenv("GOOD_LIBRARY"), "loaded");
}

TEST_F(Injector, LoadsInTheOrderOfNames) {
    install("B", filter(served), GOOD_LIBRARY);
    install("A", filter(served), GOOD_LIBRARY);
    EXPECT_EQ(inject("com.example.host"), (Paths{placeOf("A.so"), placeOf("B.so")}));
}

TEST_F(Injector, IdentifiersAreComparedExactly) {
    install("Good", filter(served), GOOD_LIBRARY);
    std::string told;
    EXPECT_EQ(inject("com.example.Host", &told), Paths{});
    EXPECT_EQ(told, "");
    EXPECT_EQ(getenv("GOOD_LIBRARY"), nullptr);
}

TEST_F(Injector, AProcessWithoutIdentifierGetsNone) {
    install("Good", filter("<array><string></string></array>"), GOOD_LIBRARY);
    EXPECT_EQ(inject(""), Paths{});
}

TEST_F(Injector, DamagedFiltersAreToldAndPassedOver) {
    install("A-garbage", "garbage {{", GOOD_LIBRARY);
    install("B-list", "( a )", GOOD_LIBRARY);
    install("C-nofilter", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>", GOOD_LIBRARY);
    install("D-string", filter("<string>com.example.host</string>"), GOOD_LIBRARY);
    install("E-good", filter(served), GOOD_LIBRARY);
    std::string told;
    EXPECT_EQ(inject("com.example.host", &told), Paths{placeOf("E-good.so")});
    for (const char* name : {"A-garbage.plist", "B-list.plist", "C-nofilter.plist", "D-string.plist"}) {
        EXPECT_NE(told.find(name), std::string::npos) << name << "\n" << told;
    }
    EXPECT_EQ(told.find("E-good"), std::string::npos);
}

TEST_F(Injector, LibrariesThatCannotBeLoadedAreToldAndPassedOver) {
    install("A-missing", filter(served), nullptr);
    install("B-text", filter(served), nullptr);
    root_.write(folder + "B-text.so", "no library");
    install("C-empty", filter(served), nullptr);
    root_.write(folder + "C-empty.dylib", "");
    install("D-unresolved", filter(served), UNRESOLVED_LIBRARY);
    install("E-cut", filter(served), nullptr);
    root_.write(folder + "E-cut.so", "\177ELF and no more");
    install("F-good", filter(served), GOOD_LIBRARY);
    std::string told;
    EXPECT_EQ(inject("com.example.host", &told), Paths{placeOf("F-good.so")});
    for (const char* expected :
         {"A-missing.plist: there is no library", "B-text.so: not a library of a known format",
          "C-empty.dylib: not a library of a known format", "D-unresolved.so", "E-cut.so", "nobodyHasThisFunction"}) {
        EXPECT_NE(told.find(expected), std::string::npos) << expected << "\n" << told;
    }
}

TEST_F(Injector, FormatsAreChosenByTheirFirstBytesNotByTheName) {
    install("Other", filter(served), nullptr);
    fs::copy_file(GOOD_LIBRARY, root_.host(folder + "Other.dylib"));
    EXPECT_EQ(inject("com.example.host"), Paths{placeOf("Other.dylib")});
}

TEST_F(Injector, APhoneWithoutTheFolderHasNothingToLoad) {
    fs::remove_all(root_.host("/Library"));
    std::string told;
    EXPECT_EQ(inject("com.example.host", &told), Paths{});
    EXPECT_EQ(told, "");
}

}  // namespace

#include "simulator/runtime/macho/loader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "simulator/runtime/macho/format.h"
#include "simulator/runtime/process/library_loader.h"
#include "simulator/runtime/process/processor.h"

// What the libraries find in this process.
namespace {
std::vector<int> notes;
}

#define OFFERED extern "C" __attribute__((visibility("default")))
OFFERED void fixtureNote(int number);
OFFERED void fixtureRaise();
OFFERED int fixtureNumber;

void fixtureNote(int number) { notes.push_back(number); }
void fixtureRaise() { throw std::runtime_error("raised by the platform"); }
int fixtureNumber = 42;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

template <class Function>
Function* fixture(const char* name) {
    return reinterpret_cast<Function*>(phone::librarySymbol(FIXTURE, name));
}

class MachoLoader : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(phone::problemOf(phone::loadLibrary(FIXTURE)), ""); }
};

TEST_F(MachoLoader, RunsInitialisersOnceInTheirOrder) {
    EXPECT_THAT(notes, ElementsAre(1, 2));
    EXPECT_EQ(phone::problemOf(phone::loadLibrary(FIXTURE)), "");
    EXPECT_THAT(notes, ElementsAre(1, 2));
}

// As the executables of preference bundles are.
TEST(MachoBundles, AreLoadedLikeLibraries) {
    ASSERT_EQ(phone::problemOf(phone::loadLibrary(FIXTURE_BUNDLE)), "");
    EXPECT_THAT(notes, ElementsAre(1, 2));
    void* function = phone::librarySymbol(FIXTURE_BUNDLE, "fixtureName");
    ASSERT_NE(function, nullptr);
    EXPECT_STREQ(reinterpret_cast<const char* (*)(int)>(function)(1), "one");
}

TEST_F(MachoLoader, MovesPointersWithTheImage) {
    EXPECT_STREQ(fixture<const char*(int)>("fixtureName")(0), "zero");
    EXPECT_STREQ(fixture<const char*(int)>("fixtureName")(2), "two");
}

TEST_F(MachoLoader, BindsVariablesOfTheProcess) {
    fixtureNumber = 7;
    EXPECT_EQ(fixture<int()>("fixtureReadsNumber")(), 7);
}

#ifndef __arm__
TEST_F(MachoLoader, LeavesMissingOptionalSymbolsNull) { EXPECT_FALSE(fixture<bool()>("fixtureHasOptional")()); }
#endif

TEST_F(MachoLoader, VariableArgumentsArriveWhereThePhonesCodePutsThem) {
    char text[128];
    const auto format = fixture<int(double, char*, unsigned long, int)>("fixtureFormats");
    EXPECT_EQ(format(2.5, text, sizeof text, -7), 41);
    EXPECT_STREQ(text, "-7 one 2.50 1099511627776 1 2 3 4 5 6 2.5");
    EXPECT_EQ(format(2.5, text, 4, -7), 41);
    EXPECT_STREQ(text, "-7 ");
}

TEST_F(MachoLoader, LibrariesLockMutexesOfThePhonesLayout) {
    constexpr int kThreads = 4, kCalls = 20000;
    const auto count = fixture<int()>("fixtureCounts");
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([count] {
            for (int call = 0; call < kCalls; ++call) count();
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(count(), kThreads * kCalls + 1);
    EXPECT_EQ(fixture<int()>("fixtureLocksZeros")(), EINVAL);
}

TEST_F(MachoLoader, LibrariesCatchWhatThePlatformRaises) { EXPECT_EQ(fixture<int()>("fixtureCatches")(), 1); }

TEST_F(MachoLoader, ExceptionsPassThroughAndRunDestructors) {
    int cleaned = 0;
    const auto one = [] { return 1; };
    EXPECT_THROW(fixture<void(int&, int (*)())>("fixtureLetsThrough")(cleaned, one), std::runtime_error);
    EXPECT_EQ(cleaned, 1);
}

TEST_F(MachoLoader, RegistersAreBackAfterAnExceptionPassedThrough) {
    // Enough values live across the call to need the registers that calls keep.
    volatile int source = 3;
    int a = source, b = source + 1, c = source + 2, d = source + 3, e = source + 4, f = source + 5, cleaned = 0;
    try {
        fixture<void(int&, int (*)())>("fixtureLetsThrough")(cleaned, [] { return 9; });
    } catch (const std::runtime_error&) {
    }
    EXPECT_THAT((std::vector{a, b, c, d, e, f}), ElementsAre(3, 4, 5, 6, 7, 8));
}

TEST_F(MachoLoader, TellsWhoseAnAddressIs) {
    EXPECT_EQ(phone::libraryOf(phone::librarySymbol(FIXTURE, "fixtureName")), FIXTURE);
    EXPECT_NE(phone::libraryOf(reinterpret_cast<void*>(&fixtureRaise)), FIXTURE);
}

TEST_F(MachoLoader, AnswersNothingForWhatALibraryDoesNotExport) {
    EXPECT_EQ(phone::librarySymbol(FIXTURE, "first"), nullptr);
    EXPECT_EQ(phone::librarySymbol(FIXTURE_ASKING, "fixtureName"), nullptr);
}

TEST(MachoLoaderProblems, AMissingSymbolIsNamedAndNothingRuns) {
    EXPECT_EQ(phone::problemOf(phone::loadLibrary(FIXTURE_ASKING)),
              "this process does not offer _fixtureNobodyHasThis");
    EXPECT_THAT(notes, ElementsAre());
    EXPECT_THAT(phone::macho::loadedImages(), ElementsAre());
}

TEST(MachoLoaderProblems, LibrariesForOtherProcessorsAreToldApart) {
    EXPECT_EQ(phone::problemOf(phone::loadLibrary(OTHER_LIBRARY)),
              "is for " OTHER_PROCESSOR ", this machine runs " + std::string(phone::kProcessor));
}

TEST(MachoLoaderProblems, FilesThatAreNoLibrariesAreRefused) {
    EXPECT_EQ(phone::problemOf(phone::loadLibrary("/etc/passwd")), "not a library of a known format");
    EXPECT_EQ(phone::problemOf(phone::loadLibrary("/no/such/file")), "not a library of a known format");
}

// A copy of the fixture, changed before it is loaded.
class DamagedLibrary : public testing::Test {
  protected:
    ~DamagedLibrary() override { std::filesystem::remove(path_); }

    std::string load() {
        std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return phone::problemOf(phone::loadLibrary(path_));
    }

    std::string bytes = [] {
        std::ifstream file(FIXTURE, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }();

  private:
    std::string path_ = testing::TempDir() + "/damaged-" + std::to_string(getpid()) + ".dylib";
};

// Where a section's header says where its contents are.
constexpr size_t kOffsetField = offsetof(phone::macho::FormatHere::Section, offset);

TEST_F(DamagedLibrary, AnInitialiserOutsideTheCodeIsRefused) {
    // The initialisers are the only pointers to the beginning of the code; give one the address of data instead.
    const std::string section("__mod_init_func", 15);
    const size_t header = bytes.find(section);
    ASSERT_NE(header, std::string::npos);
    uint32_t offset = 0;
    std::memcpy(&offset, &bytes[header + kOffsetField], sizeof offset);
    const uintptr_t inData = 0x10000000;
    std::memcpy(&bytes[offset], &inData, sizeof inData);
    EXPECT_EQ(load(), "an initialiser lies outside the code");
    EXPECT_THAT(notes, ElementsAre());
}

#ifndef __arm__  // which has no such information
// The common encodings come first in the section; each may defer to a record of __eh_frame, of which there is none
// there.
TEST_F(DamagedLibrary, UnwindInformationThatDefersToNothingIsRefused) {
    constexpr uint32_t kDeferring = phone::macho::kCpuHere == phone::macho::kCpuArm64 ? 0x03ffffff : 0x04ffffff;
    const size_t header = bytes.find("__unwind_info");
    ASSERT_NE(header, std::string::npos);
    uint32_t section = 0, encodings = 0, count = 0;
    std::memcpy(&section, &bytes[header + kOffsetField], sizeof section);
    std::memcpy(&encodings, &bytes[section + 4], sizeof encodings);
    std::memcpy(&count, &bytes[section + 8], sizeof count);
    ASSERT_GT(count, 0u);
    std::memcpy(&bytes[section + encodings], &kDeferring, sizeof kDeferring);
    EXPECT_THAT(load(), HasSubstr("names a frame that does not exist"));
    EXPECT_THAT(notes, ElementsAre());
}

TEST_F(DamagedLibrary, UnwindInformationOfAnUnknownVersionIsRefused) {
    const size_t header = bytes.find("__unwind_info");
    ASSERT_NE(header, std::string::npos);
    uint32_t offset = 0;
    std::memcpy(&offset, &bytes[header + kOffsetField], sizeof offset);
    bytes[offset] = 2;
    EXPECT_THAT(load(), HasSubstr("unknown version"));
    EXPECT_THAT(notes, ElementsAre());
}
#endif

}  // namespace

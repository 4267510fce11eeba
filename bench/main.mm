// The benchmarks: what the library adds to a host's work, and what its own work costs beside the bare calls of the
// libraries underneath. Both sides of each comparison run in this process, in rounds that take turns.
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "bench/bare.h"
#import "bench/bench_phone.h"
#include "bench/report.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/process/process.h"

namespace bench {
namespace {

constexpr const char* kAddressBookChanged = "__ABDataBaseChangedByOtherProcessNotification";
constexpr const char* kSettingChanged = "com.norvex.ZelkaCBRecentsEnabledNotification";

HostMethods methods;
Screens screens;
std::filesystem::path root;
std::string program;
Report report;

using Body = void (*)(benchmark::State&);

void compare(const std::string& what, Body library, Body without) {
    report.expect(what);
    benchmark::RegisterBenchmark((what + "/library").c_str(), library)->UseRealTime();
    if (without != nullptr) benchmark::RegisterBenchmark((what + "/without").c_str(), without)->UseRealTime();
}

// Repeats work that may leave something in an autorelease pool; many small pieces share one.
template <class Work>
void inPools(benchmark::State& state, Work work, int workPerPool = 64) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    int left = workPerPool;
    for (auto _ : state) {
        work();
        if (--left > 0) continue;
        [pool drain];
        pool = [[NSAutoreleasePool alloc] init];
        left = workPerPool;
    }
    [pool drain];
}

using RowFunction = id (*)(id, SEL, id, id);
using LayoutFunction = void (*)(id, SEL);
using FavoriteFunction = id (*)(id, SEL, ABRecordRef, BOOL*);

// The library's own part: its replacement around a host that does nothing.
template <class Work>
void aroundSilentHost(Work work) {
    theHost.isSilent = true;
    work();
    theHost.isSilent = false;
}

void recentsRow(benchmark::State& state, IMP implementation) {
    id controller = [CallBarController() recentsController];
    inPools(state, [&] {
        reinterpret_cast<RowFunction>(implementation)(controller, methods.recentsRow.selector, screens.table,
                                                      screens.recentsPath);
    });
}

void contactsRow(benchmark::State& state, IMP implementation) {
    inPools(state, [&] {
        reinterpret_cast<RowFunction>(implementation)(screens.membersSource, methods.contactsRow.selector,
                                                      screens.membersTable, screens.membersPath);
    });
}

void layout(benchmark::State& state, IMP implementation, SEL selector, id cell) {
    inPools(state, [&] { reinterpret_cast<LayoutFunction>(implementation)(cell, selector); });
}

// The pictures on favourites come from the library with square pictures only.
void favorite(benchmark::State& state, IMP implementation) {
    [Settings setIsRoundedPicsEnabled:NO];
    [Utils getContactImageOnly:1 monogramText:nil newImage:NO];
    ABMonogrammer* monogrammer = [CallBarController() monogrammer];
    ABRecordRef person = [[ABUIPerson personWithRecordID:1] record];
    BOOL isPersonImage = NO;
    inPools(state, [&] {
        [reinterpret_cast<FavoriteFunction>(implementation)(monogrammer, methods.favorite.selector, person,
                                                            &isPersonImage) release];
    });
    [Settings setIsRoundedPicsEnabled:YES];
    [Utils clearImageCache];
}

// Looks up contacts that are not cached, one after the other, each in a pool as a run loop's turn has one; starts over
// with an empty cache when all are.
void lookUp(benchmark::State& state, int first, int count, NSString* text) {
    [Utils clearImageCache];
    int next = 0;
    for (auto _ : state) {
        @autoreleasepool {
            [Utils getContactImageOnly:first + next monogramText:text newImage:NO];
        }
        if (++next < count) continue;
        state.PauseTiming();
        next = 0;
        [Utils clearImageCache];
        state.ResumeTiming();
    }
    [Utils clearImageCache];
}

// The bare side keeps its pictures just as long.
template <class Work>
void lookUpBare(benchmark::State& state, int first, int count, Work work) {
    std::vector<Picture> kept;
    kept.reserve(static_cast<std::size_t>(count));
    int next = 0;
    for (auto _ : state) {
        kept.push_back(work(first + next));
        if (++next < count) continue;
        state.PauseTiming();
        next = 0;
        kept.clear();
        state.ResumeTiming();
    }
}

void lookUpDefault(benchmark::State& state) {
    [Settings setIsMonogramEnabled:NO];
    lookUp(state, kPhotos + 1, kPlain, nil);
    [Settings setIsMonogramEnabled:YES];
}

void registerRows() {
    compare(
        "Recents row, cached: the library's part",
        [](benchmark::State& state) { aroundSilentHost([&] { recentsRow(state, methods.recentsRow.hooked); }); },
        nullptr);
    compare(
        "Recents layout pass: the library's part",
        [](benchmark::State& state) {
            aroundSilentHost([&] {
                layout(state, methods.recentsLayout.hooked, methods.recentsLayout.selector, screens.recentsCell);
            });
        },
        nullptr);
    compare(
        "Recents row, cached", [](benchmark::State& state) { recentsRow(state, methods.recentsRow.hooked); },
        [](benchmark::State& state) { recentsRow(state, methods.recentsRow.host); });
    compare(
        "Recents cell's layout pass",
        [](benchmark::State& state) {
            layout(state, methods.recentsLayout.hooked, methods.recentsLayout.selector, screens.recentsCell);
        },
        [](benchmark::State& state) {
            layout(state, methods.recentsLayout.host, methods.recentsLayout.selector, screens.recentsCell);
        });
    compare(
        "Contacts row, cached", [](benchmark::State& state) { contactsRow(state, methods.contactsRow.hooked); },
        [](benchmark::State& state) { contactsRow(state, methods.contactsRow.host); });
    compare(
        "Contacts cell's layout pass",
        [](benchmark::State& state) {
            layout(state, methods.contactsLayout.hooked, methods.contactsLayout.selector, screens.membersCell);
        },
        [](benchmark::State& state) {
            layout(state, methods.contactsLayout.host, methods.contactsLayout.selector, screens.membersCell);
        });
    // The host without the library draws each anew: no measure for an answer from the cache.
    compare(
        "Favourite's picture, cached", [](benchmark::State& state) { favorite(state, methods.favorite.hooked); },
        nullptr);
}

void registerLookups() {
    constexpr int kSome = 500;
    compare(
        "Uncached lookup: photo", [](benchmark::State& state) { lookUp(state, 1000, kSome, nil); },
        [](benchmark::State& state) { lookUpBare(state, 1000, kSome, barePhoto); });
    compare(
        "Uncached lookup: linked contact's photo",
        [](benchmark::State& state) { lookUp(state, kPhotos + kPlain + 1, kLinked, nil); },
        [](benchmark::State& state) { lookUpBare(state, kPhotos + kPlain + 1, kLinked, bareLinkedPhoto); });
    compare(
        "Uncached lookup: monogram", [](benchmark::State& state) { lookUp(state, kPhotos + 1, kPlain, @"AL"); },
        [](benchmark::State& state) {
            lookUpBare(state, kPhotos + 1, kPlain, [](int contact) {
                Picture photo = bareLinkedPhoto(contact);
                return photo ? std::move(photo) : bareMonogram("AL", contact);
            });
        });
    compare("Uncached lookup: default picture", lookUpDefault, [](benchmark::State& state) {
        lookUpBare(state, kPhotos + 1, kPlain, [](int contact) {
            Picture photo = bareLinkedPhoto(contact);
            // All share one, which is read for the first.
            return photo || contact != kPhotos + 1 ? std::move(photo) : bareDefaultPicture();
        });
    });
    compare(
        "Monogram",
        [](benchmark::State& state) {
            inPools(
                state, [] { [Utils monogramImage:@"AL"]; }, 1);
        },
        [](benchmark::State& state) {
            for (auto _ : state) bareMonogram("AL", 0);
        });
}

void preload(benchmark::State& state) {
    for (auto _ : state) [Utils prepareImageCache];
    [Utils clearImageCache];
}

void preloadBare(benchmark::State& state) {
    std::vector<Picture> pictures;
    for (auto _ : state) {
        pictures.clear();
        pictures = barePreload();
    }
}

// From a notification's posting until the screen has come to rest.
void redraw(const char* notification) {
    @autoreleasepool {
        phone::require(phone::postNotification(root, notification));
        phone::settle(10);
        [CallBarWindow() layoutIfNeeded];
        phone::settle(10);
    }
}

// Another process changes the contact that the first row shows.
void touchFirstContact() {
    static sqlite3* book = [] {
        sqlite3* opened = nullptr;
        sqlite3_open("/private/var/mobile/Library/AddressBook/AddressBook.sqlitedb", &opened);
        return opened;
    }();
    sqlite3_exec(
        book,
        "UPDATE ABPerson SET ModificationDate = (SELECT max(ModificationDate) + 1 FROM ABPerson) WHERE ROWID = 20",
        nullptr, nullptr, nullptr);
}

void registerChanges() {
    compare(
        "Settings change to redrawn Recents",
        [](benchmark::State& state) {
            for (auto _ : state) redraw(kSettingChanged);
        },
        [](benchmark::State& state) {
            inPools(state, [] {
                [[[CallBarController() recentsController] tableView] reloadData];
                [CallBarWindow() layoutIfNeeded];
            });
        });
    compare(
        "Address-book change to redrawn row",
        [](benchmark::State& state) {
            for (auto _ : state) {
                state.PauseTiming();
                touchFirstContact();
                state.ResumeTiming();
                redraw(kAddressBookChanged);
            }
        },
        nullptr);
}

void registerPreload() {
    constexpr const char* kWhat = "Preload of 10,000 thumbnails";
    const auto onePass = [](const std::string& side, Body body) {
        benchmark::RegisterBenchmark((std::string(kWhat) + side).c_str(), body)
            ->UseRealTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    };
    report.expect(kWhat);
    onePass("/library", preload);
    onePass("/without", preloadBare);
}

// What a process of its own measures and prints on one line.
std::string runOnce(const std::string& what) {
    std::string command = "'" + program + "' --once " + what + " '" + root.string() + "'";
    FILE* output = popen(command.c_str(), "r");
    char line[256] = "";
    if (output == nullptr || std::fgets(line, sizeof line, output) == nullptr || pclose(output) != 0) {
        std::fprintf(stderr, "bench: %s failed\n", command.c_str());
        std::exit(1);
    }
    return line;
}

// Starts anew for every iteration: a library's initialisers run once in a process.
void loadLibrary(benchmark::State& state) {
    for (auto _ : state) state.SetIterationTime(std::atof(runOnce("load").c_str()) / 1e9);
}

void registerLoad() {
    report.expect("Loading the library");
    benchmark::RegisterBenchmark("Loading the library/library", loadLibrary)->UseManualTime()->Iterations(1);
}

long kilobytes(const char* key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(key, 0) == 0) return std::atol(line.c_str() + std::strlen(key) + 1);
    return 0;
}

int once(const std::string& what) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    const int output = dup(STDOUT_FILENO);
    boot(root);
    const double loaded = inject();
    if (what == "load") {
        dprintf(output, "%.0f\n", loaded);
        _exit(0);
    }
    [Utils clearImageCache];
    const long before = kilobytes("VmRSS:"), peakBefore = kilobytes("VmHWM:");
    std::vector<Picture> pictures;
    if (what == "preload") {
        [Utils prepareImageCache];
    } else {
        pictures = barePreload();
    }
    const long after = kilobytes("VmRSS:"), peak = kilobytes("VmHWM:");
    dprintf(output, "resident %ld KiB more, peak %ld KiB more, %.0f bytes a picture of 25600\n", after - before,
            peak - peakBefore, double(after - before) * 1024 / kPhotos);
    [pool drain];
    _exit(0);
}

void printMemory() {
    std::printf("\nMemory of the preload, each in a process of its own\n  with library: %s",
                runOnce("preload").c_str());
    std::printf("  without:      %s", runOnce("bare-preload").c_str());
}

// Takes an argument of this program's own out of the command line; whether it was there.
bool takeArgument(int& argc, char** argv, const char* name) {
    char** found = std::find_if(argv + 1, argv + argc, [&](char* each) { return std::strcmp(each, name) == 0; });
    if (found == argv + argc) return false;
    std::copy(found + 1, argv + argc, found);
    --argc;
    return true;
}

int run(int argc, char** argv) {
    const bool measuresMemory = takeArgument(argc, argv, "--memory");
    const TemporaryRoot temporary;
    root = temporary.path();
    std::printf("Making a phone of %d contacts\n", kPhotos + kPlain + kLinked);
    makePhone(root);
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    boot(root);
    methods.readHost();
    inject();
    methods.readHooked();
    screens = makeScreens();
    registerRows();
    registerLookups();
    registerChanges();
    registerPreload();
    registerLoad();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks(&report);
    report.printTable();
    if (measuresMemory) printMemory();
    [pool drain];
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    bench::program = std::filesystem::read_symlink("/proc/self/exe");
    if (argc == 4 && std::strcmp(argv[1], "--once") == 0) {
        bench::root = argv[3];
        return bench::once(argv[2]);
    }
    return bench::run(argc, argv);
}

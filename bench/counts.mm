// Counts what the library sends, opens, steps, decodes and draws for a row, and holds it against what it promises: a
// cached row touches no database and makes no picture; an uncached contact with a thumbnail costs one step of one
// statement. Exits non-zero when a promise is broken.
#include <cstdio>

#import "bench/bench_phone.h"
#include "bench/counters.h"
#include "simulator/runtime/process/process.h"

namespace bench {
namespace {

struct Count {
    long libraryMessages, allMessages, opened, stepped, decoded, drawn;
};

bool kept = true;

template <class Work>
Count counted(Work work) {
    @autoreleasepool {
        work();  // what happens once in a process
    }
    for (auto* each : {&counters.libraryMessages, &counters.allMessages, &counters.opened, &counters.stepped,
                       &counters.decoded, &counters.drawn})
        each->store(0);
    counters.isOn = true;
    @autoreleasepool {
        work();
    }
    counters.isOn = false;
    return {counters.libraryMessages, counters.allMessages, counters.opened,
            counters.stepped,         counters.decoded,     counters.drawn};
}

template <class Work>
Count print(const char* what, Work work) {
    const Count count = counted(work);
    std::printf("%-44s %8ld %8ld %7ld %8ld %8ld %6ld\n", what, count.libraryMessages, count.allMessages, count.opened,
                count.stepped, count.decoded, count.drawn);
    return count;
}

void promise(bool isKept, const char* text) {
    if (isKept) return;
    std::printf("BROKEN: %s\n", text);
    kept = false;
}

void promiseNothingMade(const Count& count, const char* text) {
    promise(count.opened == 0 && count.stepped == 0 && count.decoded == 0 && count.drawn == 0, text);
}

template <class Function>
Function as(IMP implementation) {
    return reinterpret_cast<Function>(implementation);
}

void countRows(const HostMethods& methods, const Screens& screens) {
    using Row = id (*)(id, SEL, id, id);
    using Layout = void (*)(id, SEL);
    id recents = [CallBarController() recentsController];
    theHost.isSilent = true;
    promiseNothingMade(print("Recents row, cached",
                             [&] {
                                 as<Row>(methods.recentsRow.hooked)(recents, methods.recentsRow.selector, screens.table,
                                                                    screens.recentsPath);
                             }),
                       "a cached Recents row opens, decodes and draws nothing");
    promiseNothingMade(
        print("Recents cell's layout pass",
              [&] { as<Layout>(methods.recentsLayout.hooked)(screens.recentsCell, methods.recentsLayout.selector); }),
        "a layout pass opens, decodes and draws nothing");
    theHost.isSilent = false;
    promiseNothingMade(print("Contacts row, cached (the host's part included)",
                             [&] {
                                 as<Row>(methods.contactsRow.hooked)(screens.membersSource,
                                                                     methods.contactsRow.selector, screens.membersTable,
                                                                     screens.membersPath);
                             }),
                       "a cached Contacts row opens, decodes and draws nothing");
    promiseNothingMade(
        print("Contacts cell's layout pass (the host's, too)",
              [&] { as<Layout>(methods.contactsLayout.hooked)(screens.membersCell, methods.contactsLayout.selector); }),
        "a Contacts layout pass opens, decodes and draws nothing");
}

void countLookups() {
    int contact = 1000;
    const Count photo =
        print("Uncached lookup: photo", [&] { [Utils getContactImageOnly:contact++ monogramText:nil newImage:NO]; });
    promise(photo.opened == 1 && photo.stepped == 1 && photo.decoded == 1,
            "an uncached contact with a thumbnail costs one open, one step and one decoding");
    contact = kPhotos + kPlain + 1;
    print("Uncached lookup: linked contact's photo",
          [&] { [Utils getContactImageOnly:contact++ monogramText:nil newImage:NO]; });
    contact = kPhotos + 300;
    print("Uncached lookup: monogram", [&] { [Utils getContactImageOnly:contact++ monogramText:@"AL" newImage:NO]; });
    [Settings setIsMonogramEnabled:NO];
    print("Uncached lookup: default picture",
          [&] { [Utils getContactImageOnly:contact++ monogramText:nil newImage:NO]; });
    [Settings setIsMonogramEnabled:YES];
    print("Monogram", [] { [Utils monogramImage:@"AL"]; });
}

}  // namespace
}  // namespace bench

int main() {
    using namespace bench;
    const TemporaryRoot temporary;
    makePhone(temporary.path());
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    boot(temporary.path());
    HostMethods methods;
    methods.readHost();
    inject();
    methods.readHooked();
    const Screens screens = makeScreens();
    std::printf("%-44s %8s %8s %7s %8s %8s %6s\n", "", "library", "all", "opened", "stepped", "decoded", "drawn");
    std::printf("%-44s %8s %8s\n", "", "messages", "messages");
    countRows(methods, screens);
    countLookups();
    [pool drain];
    return kept ? 0 : 1;
}

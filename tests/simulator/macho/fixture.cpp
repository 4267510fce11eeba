// A library in the phone's binary format for the loader's tests, which offer the functions that it calls.
#include <pthread.h>
#include <stdio.h>

extern "C" {
void fixtureNote(int number);
void fixtureRaise();
extern int fixtureNumber;
#ifdef FIXTURE_ASKS_FOR_TOO_MUCH
void fixtureNobodyHasThis();
#endif
#ifndef __arm__  // whose linker binds every symbol for good
void fixtureMayBeMissing() __attribute__((weak_import));
#endif
}

namespace {

struct Cleaner {
    int& cleaned;
    ~Cleaner() { ++cleaned; }
};

[[gnu::constructor(101)]] void first() { fixtureNote(1); }
[[gnu::constructor(102)]] void second() { fixtureNote(2); }

// Pointers that move with the image.
const char* const kNames[] = {"zero", "one", "two"};

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED const char* fixtureName(int number) { return kNames[number]; }

EXPORTED int fixtureReadsNumber() { return fixtureNumber; }

#ifndef __arm__
EXPORTED bool fixtureHasOptional() { return fixtureMayBeMissing != nullptr; }
#endif

EXPORTED int fixtureCatches() {
    int cleaned = 0;
    try {
        Cleaner cleaner{cleaned};
        fixtureRaise();
    } catch (...) {
        return cleaned;
    }
    return -1;
}

// More variable arguments than registers, of both kinds. Its own first one is where every ABI has it.
EXPORTED int fixtureFormats(double real, char* text, unsigned long size, int number) {
    return snprintf(text, size, "%d %s %.2f %lld %d %d %d %d %d %d %.1f", number, kNames[1], real, 1LL << 40, 1, 2, 3,
                    4, 5, 6, real);
}

// How often it has been called, by whichever threads.
EXPORTED int fixtureCounts() {
    static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    static int calls = 0;
    if (pthread_mutex_lock(&mutex) != 0) return -1;
    const int counted = ++calls;
    return pthread_mutex_unlock(&mutex) == 0 ? counted : -1;
}

// The mutex is none: nobody has initialised it.
EXPORTED int fixtureLocksZeros() {
    static pthread_mutex_t mutex;
    return pthread_mutex_lock(&mutex);
}

// With several registers in use across the call, which unwinding must bring back.
EXPORTED void fixtureLetsThrough(int& cleaned, int (*next)()) {
    Cleaner cleaner{cleaned};
    int a = next(), b = next(), c = next(), d = next(), e = next();
    fixtureRaise();
    cleaned = a + b + c + d + e + next();
}

#ifdef FIXTURE_ASKS_FOR_TOO_MUCH
EXPORTED void fixtureAsks() { fixtureNobodyHasThis(); }
#endif

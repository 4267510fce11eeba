#include "tests/support/sleep.h"

#include <dlfcn.h>

#include <mutex>
#include <vector>

namespace test {
namespace {

struct Alarm {
    double seconds;
    std::function<void()> work;
};

struct Clock {
    std::mutex mutex;
    bool stands = false;
    unsigned now = 0;
    std::vector<Alarm> alarms;
};

Clock& sleepClock() {
    static Clock clock;
    return clock;
}

}  // namespace

void whenSlept(double seconds, std::function<void()> work) {
    Clock& clock = sleepClock();
    const std::lock_guard lock(clock.mutex);
    clock.stands = true;
    clock.alarms.push_back({clock.now + seconds, std::move(work)});
}

unsigned slept() {
    Clock& clock = sleepClock();
    const std::lock_guard lock(clock.mutex);
    return clock.now;
}

}  // namespace test

extern "C" __attribute__((visibility("default"))) unsigned sleep(unsigned seconds) {
    static const auto before = reinterpret_cast<unsigned (*)(unsigned)>(dlsym(RTLD_NEXT, "sleep"));
    test::Clock& clock = test::sleepClock();
    std::vector<std::function<void()>> due;
    {
        std::unique_lock lock(clock.mutex);
        if (!clock.stands) {
            lock.unlock();
            return before(seconds);
        }
        clock.now += seconds;
        std::erase_if(clock.alarms, [&](test::Alarm& alarm) {
            if (alarm.seconds > clock.now) return false;
            due.push_back(std::move(alarm.work));
            return true;
        });
    }
    for (const auto& work : due) work();
    return 0;
}

#pragma once

// What a test can see of, and ask from, the Darwin notify centre of this process.

#include <vector>

#include "simulator/frameworks/core_foundation/core_foundation.h"

namespace phone {

struct DarwinObserver {
    CFStringRef name;  // unowned; lives as long as the registration
    CFNotificationCallback callback;
    const void* observer;
    CFNotificationSuspensionBehavior behaviour;
};

// The registrations, oldest first. Any thread.
std::vector<DarwinObserver> darwinObservers();

enum class DeliveryThread {
    main,     // on the main run loop, in the order of posting
    watcher,  // on the thread that follows the log, as soon as it is read
};

// Where callbacks of later notifications run; the main thread at first.
void deliverNotificationsOn(DeliveryThread thread);

}  // namespace phone

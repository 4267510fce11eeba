#include "simulator/frameworks/core_foundation/darwin_notifications.h"

#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <string>

#include "simulator/frameworks/dispatch/dispatch.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/runtime/notifications/notification_watcher.h"
#include "simulator/runtime/process/pending_work.h"

struct __CFNotificationCenter {
    char unused;
};

namespace {

__CFNotificationCenter darwinCenter;

struct Registration {
    long number;  // distinguishes equal registrations
    phone::DarwinObserver observer;
};

struct Center {
    std::mutex lock;
    std::vector<Registration> registrations;
    long registered = 0;
    bool isWatching = false;
    phone::NotificationWatcher watcher;
};

Center& center() {
    // Never destroyed: its thread lives until the process ends.
    static auto* instance = new Center;
    return *instance;
}

constinit std::atomic<phone::DeliveryThread> deliveryThread{phone::DeliveryThread::main};

[[noreturn]] void giveUp(const std::string& message) {
    fprintf(stderr, "Darwin notify centre: %s\n", message.c_str());
    abort();
}

void requireDarwin(CFNotificationCenterRef ref) {
    if (ref != &darwinCenter) giveUp("this phone has no other notification centre");
}

std::vector<Registration> registrationsFor(NSString* name) {
    std::vector<Registration> matching;
    std::lock_guard guard(center().lock);
    for (const Registration& registration : center().registrations) {
        if ([registration.observer.name isEqualToString:name]) matching.push_back(registration);
    }
    return matching;
}

bool isRegistered(long number) {
    std::lock_guard guard(center().lock);
    const auto& all = center().registrations;
    return std::any_of(all.begin(), all.end(), [number](const Registration& each) { return each.number == number; });
}

// The callback's own declaration has other types of the same shape, which the sanitizer would take for a mistake.
__attribute__((no_sanitize("function"))) void call(const phone::DarwinObserver& observer, NSString* name) {
    observer.callback(&darwinCenter, const_cast<void*>(observer.observer), name, nullptr, nil);
}

// The callbacks run without the lock: they may register and remove.
void deliver(const std::string& posted) {
    @autoreleasepool {
        NSString* name = [NSString stringWithUTF8String:posted.c_str()];
        for (const Registration& registration : registrationsFor(name)) {
            if (!isRegistered(registration.number)) continue;  // removed by a callback before
            call(registration.observer, name);
        }
    }
}

void deliverQueued(void* context) {
    auto* name = static_cast<std::string*>(context);
    deliver(*name);
    delete name;
}

long countUnread() { return center().watcher.hasUnread() ? 1 : 0; }

}  // namespace

@interface PhoneNotificationFollower : NSObject
@end
@implementation PhoneNotificationFollower
+ (void)load {
    phone::addWorkSource(countUnread);
}

+ (void)follow:(id)unused {
    while (true) {
        @autoreleasepool {
            for (const std::string& name : center().watcher.next()) {
                if (deliveryThread == phone::DeliveryThread::watcher) {
                    deliver(name);
                } else {
                    dispatch_async_f(dispatch_get_main_queue(), new std::string(name), deliverQueued);
                }
            }
            center().watcher.markRead();
        }
    }
}
@end

namespace {

// With the centre's lock held. Once this returns, everything posted is seen.
void startWatching() {
    if (center().isWatching) return;
    if (phone::root().empty()) giveUp("this process belongs to no phone yet");
    const phone::Status opened = center().watcher.open(phone::root());
    if (!opened) giveUp(opened.error().message);
    center().isWatching = true;
    [NSThread detachNewThreadSelector:@selector(follow:) toTarget:[PhoneNotificationFollower class] withObject:nil];
}

template <typename Condition>
void removeWhere(Condition condition) {
    std::lock_guard guard(center().lock);
    auto& all = center().registrations;
    for (auto each = all.begin(); each != all.end();) {
        if (!condition(each->observer)) {
            ++each;
            continue;
        }
        [each->observer.name autorelease];
        each = all.erase(each);
    }
}

}  // namespace

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter() { return &darwinCenter; }

void CFNotificationCenterAddObserver(CFNotificationCenterRef ref, const void* observer, CFNotificationCallback callback,
                                     CFStringRef name, const void*, CFNotificationSuspensionBehavior behaviour) {
    requireDarwin(ref);
    if (name == nil || callback == nullptr) giveUp("an observer was added without a name or without a callback");
    std::lock_guard guard(center().lock);
    startWatching();
    center().registrations.push_back({++center().registered, {[name copy], callback, observer, behaviour}});
}

void CFNotificationCenterRemoveObserver(CFNotificationCenterRef ref, const void* observer, CFStringRef name,
                                        const void*) {
    requireDarwin(ref);
    removeWhere([&](const phone::DarwinObserver& each) {
        return each.observer == observer && (name == nil || [each.name isEqualToString:name]);
    });
}

void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef ref, const void* observer) {
    CFNotificationCenterRemoveObserver(ref, observer, nil, nullptr);
}

void CFNotificationCenterPostNotification(CFNotificationCenterRef ref, CFStringRef name, const void*, CFDictionaryRef,
                                          Boolean) {
    requireDarwin(ref);
    const phone::Status posted = phone::postNotification(phone::root(), [name UTF8String] ?: "");
    if (!posted) fprintf(stderr, "Darwin notify centre: %s\n", posted.error().message.c_str());
}

namespace phone {

std::vector<DarwinObserver> darwinObservers() {
    std::vector<DarwinObserver> result;
    std::lock_guard guard(center().lock);
    for (const Registration& each : center().registrations) result.push_back(each.observer);
    return result;
}

void deliverNotificationsOn(DeliveryThread thread) { deliveryThread = thread; }

}  // namespace phone

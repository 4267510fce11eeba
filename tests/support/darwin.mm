#include "tests/support/darwin.h"

#include <string>

#include "simulator/frameworks/core_foundation/darwin_notifications.h"

namespace test {
namespace {

// The library and this side of the border declare the callback's types under other names.
__attribute__((no_sanitize("function"))) void call(const phone::DarwinObserver& observer, NSString* name) {
    observer.callback(CFNotificationCenterGetDarwinNotifyCenter(), const_cast<void*>(observer.observer), name, nullptr,
                      nil);
}

}  // namespace

int deliver(std::string_view name) {
    return deliverAs([NSString stringWithUTF8String:std::string(name).c_str()], name);
}

int deliverAs(NSString* pretended, std::string_view name) {
    int delivered = 0;
    for (const phone::DarwinObserver& each : phone::darwinObservers()) {
        if ([each.name UTF8String] != name) continue;
        call(each, pretended);
        ++delivered;
    }
    return delivered;
}

}  // namespace test

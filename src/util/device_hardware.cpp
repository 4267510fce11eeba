#include "src/util/device_hardware.h"

#include "src/platform/system.h"

namespace zelka::ZLKCBUIDeviceHardware {
namespace {

enum class Match { whole, beginning };

struct DeviceName {
    Match match;
    const char* machine;
    const char* name;
};

// The first row that matches wins.
constexpr DeviceName kDeviceNames[] = {
    {Match::whole, "iPhone1,1", "iPhone 1G"},  {Match::whole, "iPhone1,2", "iPhone 3G"},
    {Match::whole, "iPhone2,1", "iPhone 3GS"}, {Match::beginning, "iPhone3", "iPhone 4"},
    {Match::beginning, "iPod", "iPod"},        {Match::beginning, "iPad", "iPad"},
    {Match::whole, "i386", "Simulator"},
};

bool matches(const DeviceName& row, NSString machine) {
    NSString wanted = NSString::fromUTF8(row.machine);
    return row.match == Match::whole ? machine.equals(wanted) : machine.hasPrefix(wanted);
}

}  // namespace

NSString platform() {
    char machine[64] = {};
    std::size_t size = sizeof machine - 1;
    if (sysctlbyname("hw.machine", machine, &size, nullptr, 0) != 0) machine[0] = '\0';
    return NSString::fromUTF8(machine);
}

NSString platformString() {
    NSString machine = platform();
    for (const DeviceName& row : kDeviceNames) {
        if (matches(row, machine)) return NSString::fromUTF8(row.name);
    }
    return machine;
}

}  // namespace zelka::ZLKCBUIDeviceHardware

// The runtime class ZLKCBUIDeviceHardware.
#pragma once

namespace zelka {

// Registers the class, of which both it and its instances have the same methods. On the loading thread.
void registerDeviceHardwareClass();

}  // namespace zelka

// The runtime class ZLKCBSettings: the settings object as other code in the process sees it.
#pragma once

namespace zelka {

// Registers the class with the runtime. On the loading thread.
void registerSettingsClass();

}  // namespace zelka

// The page's controller, which the Settings app shows.
#pragma once

namespace zelka {

// Registers the bundle's principal class, "ZelkaCBSettingsController", under PSListController. On the loading thread.
void registerController();

}  // namespace zelka

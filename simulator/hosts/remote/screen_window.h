#pragma once

@class UIWindow;

namespace hosts {

// The window that pictures of the screen show; each host defines it. Unowned; nil while the host shows none. Main
// thread, after the application's launch.
UIWindow* screenWindow();

}  // namespace hosts

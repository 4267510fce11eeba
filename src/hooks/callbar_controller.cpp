#include "src/hooks/callbar_controller.h"

#include "src/platform/foundation/NSNotificationCenter.h"
#include "src/platform/owned.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {
constinit ABMonogrammer captured{};
}  // namespace

ABMonogrammer capturedMonogrammer() { return captured; }

void controllerViewDidLoad(CallBarControllerModern self, SEL command) {
    ControllerViewDidLoad::host(self, command);
    NSNotificationCenter::shared().addObserver(self, selector<"zelkaCBSettingsChanged:">(),
                                               settingsChangedNotification());
}

ABMonogrammer controllerMonogrammer(CallBarControllerModern self, SEL command) {
    ABMonogrammer monogrammer = ControllerMonogrammer::host(self, command);
    if (!captured) captured = keepForever(retain(monogrammer));
    return monogrammer;
}

void controllerSettingsChanged(CallBarControllerModern self, SEL, NSObject) {
    self.cleanupFavoritesButtons();
    self.resetFavorites();
}

}  // namespace zelka

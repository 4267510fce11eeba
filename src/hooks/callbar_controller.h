// CallBar's main controller: it hears of settings changes, and its monogram generator is noted.
#pragma once

#include "src/hooks/host_classes.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/hook.h"
#include "src/platform/uikit/UIControl.h"

namespace zelka {

// CallBar's own monogram generator: the first that any of its controllers returned, kept for the life of the process;
// nil until then (+0). Main thread.
ABMonogrammer capturedMonogrammer();

void controllerViewDidLoad(CallBarControllerModern self, SEL command);
using ControllerViewDidLoad = Hook<"CallBarControllerModern", "viewDidLoad", &controllerViewDidLoad>;

ABMonogrammer controllerMonogrammer(CallBarControllerModern self, SEL command);
using ControllerMonogrammer = Hook<"CallBarControllerModern", "monogrammer", &controllerMonogrammer>;

// Has the favourites strip built anew.
void controllerSettingsChanged(CallBarControllerModern self, SEL command, NSObject notification);
using ControllerSettingsChanged =
    AddedMethod<"CallBarControllerModern", "zelkaCBSettingsChanged:", "v@:@@", &controllerSettingsChanged>;

template <FixedString selectorName>
void controllerToggle(CallBarControllerModern self, SEL command, UIControl sender);

template <FixedString selectorName>
using ControllerToggle = Hook<"CallBarControllerModern", selectorName, &controllerToggle<selectorName>>;

// Changes nothing: the sender gets one message, and the host does all the work.
template <FixedString selectorName>
void controllerToggle(CallBarControllerModern self, SEL command, UIControl sender) {
    static_cast<void>(sender.isSelected());
    ControllerToggle<selectorName>::host(self, command, sender);
}

}  // namespace zelka

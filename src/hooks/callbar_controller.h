// CallBar's main controller: subscribed to settings changes, and asked for its monogram generator.
#pragma once

#include "src/platform/foundation.h"
#include "src/platform/hook.h"
#include "src/platform/uikit.h"

struct CallBarControllerModern : UIResponder {};
struct ABMonogrammer : NSObject {
    UIFont font() const { return send<UIFont, "font">(*this); }
};

namespace hooks {

// CallBar's own monogram generator: the first that any of its controllers answered, kept for the life of the process;
// nil until then. Main thread.
ABMonogrammer capturedMonogrammer();

void controllerViewDidLoad(CallBarControllerModern self, SEL command);
using ControllerViewDidLoad = Hook<"CallBarControllerModern", "viewDidLoad", &controllerViewDidLoad>;

ABMonogrammer controllerMonogrammer(CallBarControllerModern self, SEL command);
using ControllerMonogrammer = Hook<"CallBarControllerModern", "monogrammer", &controllerMonogrammer>;

template <FixedString selectorName>
void controllerToggle(CallBarControllerModern self, SEL command, NSObject sender);

template <FixedString selectorName>
using ControllerToggle = Hook<"CallBarControllerModern", selectorName, &controllerToggle<selectorName>>;

// The toggles are watched, not changed: the sender is asked and the host does all the work.
template <FixedString selectorName>
void controllerToggle(CallBarControllerModern self, SEL command, NSObject sender) {
    static_cast<void>(send<bool, "isSelected">(sender));
    ControllerToggle<selectorName>::host(self, command, sender);
}

}  // namespace hooks

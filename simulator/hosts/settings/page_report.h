// What a page of the Settings app shows, as JSON values. All frames are [x, y, width, height] in points.
#pragma once

#include "simulator/frameworks/preferences/preferences.h"

namespace hosts {

// All rows of the list, in or out of sight, from the top down (+0), one dictionary each:
//
//   "section", "row", "label", "value" (a text; NSNull for none), "on" (NSNull for what is no switch), "enabled",
//   "cell" (its class), "header", "footer" (of its section; NSNull for none), "frame" (in the list's content)
NSArray* rowReportsOf(PSListController* list);

// {"title", "message", "buttons": titles} of the alert in front; NSNull for none. +0.
id alertReport();

// The path of the row with that label, which is brought into sight; nil when there is none. +0.
NSIndexPath* rowLabelled(PSListController* list, NSString* label);

}  // namespace hosts

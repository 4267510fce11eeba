// What stands on the screen, as JSON values. All frames are [x, y, width, height] in points.
#pragma once

#import <Foundation/Foundation.h>

@class CallBarControllerModern, UIImage;

namespace hosts {

// {"size": [points], "scale", "pixels": [width, height], "hash", "look": the picture in 16 x 16 squares, two
// hexadecimal digits for each one's mean red, green and blue, "centre": the middle pixel's colour ("#rrggbb"),
// "corner": the alpha (0 to 255) a tenth of the way in from the corner, "source", "sourceContact", "colour"}; NSNull
// for no picture. `contact` is whose photo to look for, 0 for nobody's. The last three take a comparison with every
// picture that it might be; they are left out unless `withSource`. +0.
id pictureReport(UIImage* picture, int contact, bool withSource = true);

// The visible rows of the shown list from the top down, one dictionary each. +0.
//
//   "section", "sectionTitle" (NSNull in a list without titles), "row", "contact" (contact ID; below 1 for none),
//   "name" (the text shown), "editing", "frame" (in the list's content), "hasPictureView", "pictureInContentView",
//   "picture" (see above), "frames": {"picture", "name", "detail", "date", "icon"} in the cell's coordinates (NSNull
//   for what is not shown)
//
// and of a call also "address", "calls" (how many), "missed", "outgoing", "detail" and "date" (texts), "answers"
// ("uid", "addressBookRecordId" or "neither") and "answersCallerName".
NSArray* rowReports(CallBarControllerModern* controller, bool withSources = true);

// The favourites strip's buttons in order: "name", "contact", "frame" (in the strip), "picture". +0.
NSArray* favoriteReports(CallBarControllerModern* controller, bool withSources = true);

}  // namespace hosts

// The files of the library's preference bundle.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// The bundle's directory (+0).
NSString bundleDirectory();

// The path of the bundle's picture of that name (without extension) for the main screen: "recent@2x.png" on a screen of
// two pixels a point, "recent.png" on a screen of one (+0). Any thread.
NSString bundlePicturePath(NSString name);

}  // namespace zelka

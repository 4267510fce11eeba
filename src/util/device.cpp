#include "src/util/device.h"

#include <utility>

#include "src/platform/uikit/UIApplication.h"
#include "src/platform/uikit/UIDevice.h"
#include "src/platform/uikit/UIScreen.h"
#include "src/util/utility_class.h"

namespace zelka {
namespace {

constexpr float kVersion7 = 7.0F;
constexpr float kVersion8 = 8.0F;
constexpr NSInteger kLandscapeRight = 3;
constexpr NSInteger kLandscapeLeft = 4;

float systemVersionNumber() { return UIDevice::current().systemVersion().floatValue(); }

// Whether the screen's bounds are upright while the interface lies on its side.
bool boundsIgnoreRotation() {
    if (isIOS_8()) return false;
    NSInteger orientation = UIApplication::shared().statusBarOrientation();
    return orientation == kLandscapeRight || orientation == kLandscapeLeft;
}

}  // namespace

bool isIOS_7() {
    initialiseUtilityClass();
    return systemVersionNumber() >= kVersion7;
}

bool isIOS_8() { return systemVersionNumber() >= kVersion8; }

CGSize screenSize() {
    CGSize size = UIScreen::main().bounds().size;
    if (boundsIgnoreRotation()) std::swap(size.width, size.height);
    return size;
}

}  // namespace zelka

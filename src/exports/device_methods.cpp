#include "src/exports/device_methods.h"

#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIDevice.h"
#include "src/platform/uikit/UIScreen.h"
#include "src/util/device.h"

namespace zelka {
namespace {

constexpr CGFloat kRetinaScale = 2.0;
// In points.
constexpr CGFloat kIPhone6Height = 667.0;
constexpr CGFloat kIPhone6PlusHeight = 736.0;
constexpr NSInteger kPhoneIdiom = 0;
constexpr NSInteger kOrderedSame = 0;

// Whether this is a phone whose screen is exactly that high.
bool isPhoneOfHeight(CGFloat height) {
    UIScreen screen = UIScreen::main();
    UIDevice device = UIDevice::current();
    if (device.respondsTo(selector<"userInterfaceIdiom">()) && device.userInterfaceIdiom() != kPhoneIdiom) return false;
    if (screen.respondsTo(selector<"nativeBounds">())) {
        return screen.nativeBounds().size.height / screen.nativeScale() == height;
    }
    return screen.bounds().size.height == height;
}

// Whether the system's version text is that one, letter case aside.
bool isMatchingIOSFound(NSString version) {
    NSString own = UIDevice::current().systemVersion();
    return own && version && own.caseInsensitiveCompare(version) == kOrderedSame;
}

// Whether the main screen has exactly two pixels a point; a screen of three does not count.
bool isRetinaDisplay() {
    UIScreen screen = UIScreen::main();
    return screen.respondsTo(selector<"scale">()) && screen.scale() == kRetinaScale;
}

bool isIPhone6() { return isPhoneOfHeight(kIPhone6Height); }
bool isIPhone6Plus() { return isPhoneOfHeight(kIPhone6PlusHeight); }
bool isIPhone6OR6Plus() { return isIPhone6() || isIPhone6Plus(); }

// In points, as screenSize.
CGFloat screenWidth() { return screenSize().width; }
CGFloat screenHeight() { return screenSize().height; }

}  // namespace

std::span<const MethodRow> deviceMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"isMatchingIOSFound:", bool(NSString), &isMatchingIOSFound>(),
        classMethod<"isIOS_7", bool(), &isIOS_7>(),
        classMethod<"isIOS_8", bool(), &isIOS_8>(),
        classMethod<"isRetinaDisplay", bool(), &isRetinaDisplay>(),
        // Its name promises more: every screen of two pixels a point counts.
        classMethod<"isIPhone4", bool(), &isRetinaDisplay>(),
        classMethod<"isIPhone6", bool(), &isIPhone6>(),
        classMethod<"isIPhone6Plus", bool(), &isIPhone6Plus>(),
        classMethod<"isIPhone6OR6Plus", bool(), &isIPhone6OR6Plus>(),
        classMethod<"screenWidth", CGFloat(), &screenWidth>(),
        classMethod<"screenHeight", CGFloat(), &screenHeight>(),
    };
    return kRows;
}

}  // namespace zelka

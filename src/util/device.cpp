#include "src/util/device.h"

#include "src/platform/uikit.h"
#include "src/util/utility_class.h"

namespace ZelkaCBUtils {
namespace {

constexpr float kVersion7 = 7.0F;
constexpr float kVersion8 = 8.0F;
constexpr CGFloat kRetinaScale = 2.0;
constexpr CGFloat kIPhone6Height = 667.0;
constexpr CGFloat kIPhone6PlusHeight = 736.0;
constexpr NSInteger kPhoneIdiom = 0;
constexpr NSInteger kLandscapeRight = 3;
constexpr NSInteger kLandscapeLeft = 4;
constexpr NSInteger kOrderedSame = 0;

float systemVersionNumber() { return UIDevice::current().systemVersion().floatValue(); }

bool isPhoneOfHeight(CGFloat height) {
    UIScreen screen = UIScreen::main();
    UIDevice device = UIDevice::current();
    if (respondsTo(device, selector<"userInterfaceIdiom">()) && device.userInterfaceIdiom() != kPhoneIdiom)
        return false;
    if (respondsTo(screen, selector<"nativeBounds">())) {
        return screen.nativeBounds().size.height / screen.nativeScale() == height;
    }
    return screen.bounds().size.height == height;
}

// Whether the screen's bounds are upright while the interface lies on its side.
bool boundsIgnoreRotation() {
    if (isIOS_8()) return false;
    NSInteger orientation = UIApplication::shared().statusBarOrientation();
    return orientation == kLandscapeRight || orientation == kLandscapeLeft;
}

}  // namespace

bool isMatchingIOSFound(NSString version) {
    NSString own = UIDevice::current().systemVersion();
    return own && version && own.caseInsensitiveCompare(version) == kOrderedSame;
}

bool isIOS_7() {
    initialiseUtilityClass();
    return systemVersionNumber() >= kVersion7;
}

bool isIOS_8() { return systemVersionNumber() >= kVersion8; }

bool isRetinaDisplay() {
    UIScreen screen = UIScreen::main();
    return respondsTo(screen, selector<"scale">()) && screen.scale() == kRetinaScale;
}

bool isIPhone4() { return isRetinaDisplay(); }

bool isIPhone6() { return isPhoneOfHeight(kIPhone6Height); }

bool isIPhone6Plus() { return isPhoneOfHeight(kIPhone6PlusHeight); }

bool isIPhone6OR6Plus() { return isIPhone6() || isIPhone6Plus(); }

CGFloat screenWidth() {
    CGSize size = UIScreen::main().bounds().size;
    return boundsIgnoreRotation() ? size.height : size.width;
}

CGFloat screenHeight() {
    CGSize size = UIScreen::main().bounds().size;
    return boundsIgnoreRotation() ? size.width : size.height;
}

std::span<const MethodRow> deviceMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"isMatchingIOSFound:", bool(NSString), &isMatchingIOSFound>(),
        classMethod<"isIOS_7", bool(), &isIOS_7>(),
        classMethod<"isIOS_8", bool(), &isIOS_8>(),
        classMethod<"isRetinaDisplay", bool(), &isRetinaDisplay>(),
        classMethod<"isIPhone4", bool(), &isIPhone4>(),
        classMethod<"isIPhone6", bool(), &isIPhone6>(),
        classMethod<"isIPhone6Plus", bool(), &isIPhone6Plus>(),
        classMethod<"isIPhone6OR6Plus", bool(), &isIPhone6OR6Plus>(),
        classMethod<"screenWidth", CGFloat(), &screenWidth>(),
        classMethod<"screenHeight", CGFloat(), &screenHeight>(),
    };
    return rows;
}

}  // namespace ZelkaCBUtils

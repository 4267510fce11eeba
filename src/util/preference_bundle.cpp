#include "src/util/preference_bundle.h"

#include <cstdio>

#include "src/platform/uikit/UIScreen.h"

namespace zelka {

NSString bundleDirectory() { return literal<"/System/Library/PreferenceBundles/ZelkaCBSettings.bundle/">(); }

NSString bundlePicturePath(NSString name) {
    UIScreen screen = UIScreen::main();
    NSString path = bundleDirectory().appendingPathComponent(name);
    // Screens that drive display links are those of the systems that know scales.
    if (!screen.respondsTo(selector<"displayLinkWithTarget:selector:">()) || screen.scale() < 2) {
        return path.appending(literal<".png">());
    }
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, "@%dx.png", static_cast<int>(screen.scale()));
    return path.appending(NSString::fromUTF8(suffix));
}

}  // namespace zelka

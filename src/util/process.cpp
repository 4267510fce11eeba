#include "src/util/process.h"

#include "src/platform/foundation/NSBundle.h"

namespace zelka {

NSString mainBundleIdentifier() { return NSBundle::main().identifier(); }

bool isSpringBoard() { return mainBundleIdentifier().equals(literal<"com.apple.springboard">()); }

bool isServedProcess() {
    NSString identifier = mainBundleIdentifier();
    return identifier.equals(literal<"com.apple.springboard">()) ||
           identifier.equals(literal<"net.vantrel.callbarviewservice">());
}

}  // namespace zelka

#include "src/hooks/springboard.h"

#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/owned.h"
#include "src/settings/settings.h"
#include "src/util/log.h"
#include "src/util/preference_bundle.h"

namespace zelka {

void applicationDidFinishLaunching(NSObject self, SEL command, NSObject application) {
    ApplicationDidFinishLaunching::host(self, command, application);
    NSString path = bundleDirectory().appendingPathComponent(literal<"ZelkaCB.plist">());
    Owned<NSMutableDictionary> product = NSMutableDictionary::fromFile(path);
    auto name = product->objectFor<NSString>(literal<"Name">());
    auto version = product->objectFor<NSString>(literal<"Version">());
    if (isZelkaCBOnlyOn()) logInfoPlain(name, " (", version, ") loading....");
    product->removeAllObjects();
}

}  // namespace zelka

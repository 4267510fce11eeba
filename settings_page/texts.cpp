#include "settings_page/texts.h"

#include "src/platform/foundation/NSDictionary.h"
#include "src/util/preference_bundle.h"

namespace zelka {

NSBundle pageBundle() { return NSBundle::withPath(bundleDirectory()); }

NSString localized(Text text) {
    return pageBundle().localized(NSString::fromUTF8(kTextKeys[static_cast<std::size_t>(text)]), listName());
}

NSString versionText() {
    Owned<NSMutableDictionary> list =
        NSMutableDictionary::fromFile(bundleDirectory().appendingPathComponent(literal<"ZelkaCB.plist">()));
    return retain(list->objectFor<NSString>(literal<"Version">())).autorelease();
}

}  // namespace zelka

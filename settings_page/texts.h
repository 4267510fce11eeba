// The page's texts and its bundle. The texts of the page's list are found by the framework; these are the others.
#pragma once

#include "settings_page/text_keys.h"
#include "src/platform/foundation/NSBundle.h"

namespace zelka {

// The page's list, and the table of its texts.
inline NSString listName() { return literal<"ZelkaCB">(); }

// The bundle (+0). The framework cannot find it by the page's class, which was made at run time and belongs to no file.
NSBundle pageBundle();

// The text in the user's language (+0).
NSString localized(Text text);

// The version in the bundle's list (+0).
NSString versionText();

}  // namespace zelka

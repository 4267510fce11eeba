// A stand-in for PreferenceLoader, which adds the pages of installed tweaks to the Settings app: one property list each
// in /Library/PreferenceLoader/Preferences. Main thread.
#pragma once

#include "simulator/frameworks/preferences/preferences.h"

namespace hosts {

// The rows of the first page (+0), in the order of the lists' file names. A file without a usable "entry" is left out,
// with a message on standard error. Each has the file's list in its property "list".
NSArray* installedEntries();

// The page that an entry leads to (+0): with "bundle" and "isController", one of the bundle's principal class, else the
// list's own "items". Raises, naming the places, when the bundle is not installed or cannot be loaded.
UIViewController* pageOfEntry(PSSpecifier* entry);

}  // namespace hosts

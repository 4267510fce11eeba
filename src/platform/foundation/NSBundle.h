// Bundles on disk: the application, and folders with code, texts and pictures. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSBundle : NSObject {
    static NSBundle main() { return zelka::send<NSBundle, "mainBundle">(zelka::platformClass<NSBundle>()); }
    // The bundle in that folder; nil when there is no such folder.
    static NSBundle withPath(NSString path) {
        return zelka::send<NSBundle, "bundleWithPath:">(zelka::platformClass<NSBundle>(), path);
    }
    // The text of that key in the user's language, from the table of that name; the key itself when there is none.
    NSString localized(NSString key, NSString table) const {
        return zelka::send<NSString, "localizedStringForKey:value:table:">(*this, key, NSString{}, table);
    }
    // nil when the bundle names none.
    NSString identifier() const { return zelka::send<NSString, "bundleIdentifier">(*this); }
};

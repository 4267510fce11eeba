// Questions to the file system. Results are unowned (+0); any thread.
#pragma once

#include "src/platform/foundation/NSDictionary.h"

struct NSFileManager : NSObject {
    static NSFileManager shared() {
        return zelka::send<NSFileManager, "defaultManager">(zelka::platformClass<NSFileManager>());
    }
    // Whether a file or directory is there.
    bool exists(NSString path) const { return zelka::send<bool, "fileExistsAtPath:">(*this, path); }
    // The same by the other method, with the question whether it is a directory left unasked.
    bool existsOfAnyKind(NSString path) const {
        return zelka::send<bool, "fileExistsAtPath:isDirectory:">(*this, path, static_cast<BOOL*>(nullptr));
    }
    // What the file system says of a file or link, which is not followed; nil when there is none.
    NSDictionary attributes(NSString path) const {
        return zelka::send<NSDictionary, "attributesOfItemAtPath:error:">(*this, path, static_cast<id*>(nullptr));
    }
};

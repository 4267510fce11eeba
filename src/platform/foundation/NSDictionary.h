// Dictionaries. Results are unowned (+0) unless they say Owned. Any thread, but a mutable one is used by one thread at
// a time.
#pragma once

#include "src/platform/foundation/NSString.h"

struct NSDictionary : NSObject {
    NSUInteger count() const { return zelka::send<NSUInteger, "count">(*this); }
    // nil when the key has no object. The object's class is not checked.
    template <zelka::ObjectHandle T = NSObject>
    T objectFor(NSObject key) const {
        return zelka::send<T, "objectForKey:">(*this, key);
    }
    // Of a file's attributes: its size in bytes, and its kind (kRegularFile for instance).
    unsigned long long fileSize() const { return zelka::send<unsigned long long, "fileSize">(*this); }
    NSString fileType() const { return zelka::send<NSString, "fileType">(*this); }
    // Writes a property list and returns whether that succeeded; atomically means through a temporary file.
    bool writeToFile(NSString path, bool atomically) const {
        return zelka::send<bool, "writeToFile:atomically:">(*this, path, atomically);
    }
};

struct NSMutableDictionary : NSDictionary {
    [[nodiscard]] static zelka::Owned<NSMutableDictionary> create() { return zelka::allocInit<NSMutableDictionary>(); }
    // The property list in the file; nothing when it cannot be read as a dictionary.
    [[nodiscard]] static zelka::Owned<NSMutableDictionary> fromFile(NSString path) {
        return zelka::allocInit<NSMutableDictionary, "initWithContentsOfFile:">(path);
    }
    // The dictionary retains the object and copies the key; nil for either raises.
    void setObject(NSObject object, NSObject key) const { zelka::send<void, "setObject:forKey:">(*this, object, key); }
    void removeAllObjects() const { zelka::send<void, "removeAllObjects">(*this); }
};

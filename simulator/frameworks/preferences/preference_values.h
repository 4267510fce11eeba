// How the Settings app's own reading and writing of values travels. Main thread.
#pragma once

#import <Foundation/Foundation.h>

namespace preferences {

// A value of a domain such as com.example.app, whose file is /var/mobile/Library/Preferences/DOMAIN.plist; a domain
// that begins with "/" is a file's path. nil when there is none; +0.
id readValue(NSString* domain, NSString* key);

// On a phone without a preferences service the file is written at once, keeping the keys that are not changed. The
// service (from system 8 on; device.plist's PreferencesService) keeps what it has once read of a domain, and writes the
// whole of that some seconds later. An unwritable file raises.
void writeValue(NSString* domain, NSString* key, id value);

// Has the service write now what it has not written yet, as it does by itself in the end.
void writeLateValues();

void postNotification(NSString* name);

}  // namespace preferences

// What a change of the address book by another process does.
#pragma once

#include "src/platform/core_foundation.h"

namespace zelka {

// The Darwin notification that announces it.
constexpr const char* kAddressBookChangedNotification = "__ABDataBaseChangedByOtherProcessNotification";

// What the Darwin notify centre calls: drops the picture of the contact modified last and, if there was one, has the
// visible lists fetch their pictures again. Does nothing in a process that is not served, or under another name. The
// thread is the notify centre's.
void addressBookChangedCallBack(CFNotificationCenterRef center, void* observer, CFStringRef name, const void* object,
                                CFDictionaryRef userInfo);

}  // namespace zelka

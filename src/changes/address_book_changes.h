// Changes that other processes make to the address book.
#pragma once

#include "src/platform/core_foundation.h"

// The Darwin notification that tells of them.
constexpr const char* kAddressBookChangedNotification = "__ABDataBaseChangedByOtherProcessNotification";

// What the Darwin notify centre calls: drops the picture of the contact modified last and, if there was one, has the
// visible lists fetch their pictures again. Does nothing in a process that is not served, or under another name. The
// thread is the notify centre's.
void addressBookChangedCallBack(CFNotificationCenterRef center, void* observer, CFStringRef name, const void* object,
                                CFDictionaryRef userInfo);

#pragma once

#include <objc/objc.h>

// Sets every weak reference to the object to nil, because it is going. Any thread.
void zeroWeakReferences(id object);

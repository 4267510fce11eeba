// All of Foundation's handles, for files that are not converted yet.
#pragma once

#include "src/platform/foundation/NSArray.h"
#include "src/platform/foundation/NSAutoreleasePool.h"
#include "src/platform/foundation/NSBundle.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSFileManager.h"
#include "src/platform/foundation/NSNotificationCenter.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSOperation.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/send.h"
#include "src/platform/transition.h"

#pragma once

#import <Foundation/Foundation.h>

#include "simulator/frameworks/core_graphics/base.h"

// Whether the application's interface reads from the right. Main thread, after the application's launch.
CG_EXTERN BOOL ABUIReadsFromTheRight(void);

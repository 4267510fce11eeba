// CallBar's list cell: a picture view at its leading edge, and the host's labels beside it.
#pragma once

#include "src/hooks/host_classes.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/hook.h"

namespace zelka {

CallBarTableViewTransparentCell cellInit(CallBarTableViewTransparentCell self, SEL command, NSInteger style,
                                         NSString reuseIdentifier);
using CellInit = Hook<"CallBarTableViewTransparentCell", "initWithStyle:reuseIdentifier:", &cellInit>;

// An instance method on the cell, not the class's own initialiser of that name.
void cellInitialize(CallBarTableViewTransparentCell self, SEL command);
using CellInitialize = AddedMethod<"CallBarTableViewTransparentCell", "initialize", "v@:", &cellInitialize>;

void cellLayout(CallBarTableViewTransparentCell self, SEL command);
using CellLayout = Hook<"CallBarTableViewTransparentCell", "layoutSubviews", &cellLayout>;

}  // namespace zelka

// The destruction of what a cleared map held.
#pragma once

#include "src/cache/object_map.h"

namespace zelka {

// Destroys up to a few hundred objects at once and the rest on the shared queue, as many at a time: neither the caller
// nor a picture that is read on the queue has to wait for thousands. Any thread.
void letGo(ObjectMap::Contents contents);

}  // namespace zelka

// Ownership of what GLib counts references of.
#pragma once

#include <glib-object.h>

namespace uikit {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

}  // namespace uikit

// Owners for what GLib and its relatives hand out.
#pragma once

#include <glib-object.h>

#include <memory>

namespace phone {

struct UnrefObject {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using GObjectPointer = std::unique_ptr<T, UnrefObject>;

struct FreeText {
    void operator()(gchar* text) const { g_free(text); }
};
using GText = std::unique_ptr<gchar, FreeText>;

}  // namespace phone

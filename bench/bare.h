// The same work as the library's lookups, in plain calls of SQLite, gdk-pixbuf, cairo and pango: what a picture costs
// when nothing is between the caller and those libraries. Same statements, same sizes, same filters.
#pragma once

#include <cairo.h>

#include <memory>
#include <vector>

namespace bench {

struct DestroySurface {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Picture = std::unique_ptr<cairo_surface_t, DestroySurface>;

// Reads the contact's thumbnail with a connection of its own. None: nullptr.
Picture barePhoto(int contact);
// Finds out that the contact has no thumbnail, logs so, then who is linked with it, and reads the first thumbnail among
// those.
Picture bareLinkedPhoto(int contact);
// An 80-pixel monogram for 40 points, rounded off at its corners. Contact 0 is nobody.
Picture bareMonogram(const char* initials, int contact);
// The picture of contacts without one, from the preference bundle.
Picture bareDefaultPicture();
// Every thumbnail of the image database, in one pass.
std::vector<Picture> barePreload();

}  // namespace bench

// What encoded pictures say about themselves, read without decoding them. Pure; any thread.
#pragma once

#include <string_view>

namespace uikit {

/// gdk-pixbuf's name for the format that the bytes begin like; null when it is none that UIKit reads here.
const char* pictureType(std::string_view data);

/// Whether the bytes reach to the picture's end. The decoders for "png", "jpeg" and "bmp" take what there is of a
/// cut-off picture for the whole; the others notice by themselves, and for them it returns true.
bool reachesEnd(std::string_view type, std::string_view data);

}  // namespace uikit

// Filling the image cache with every contact's photo at once.
#pragma once

namespace zelka {

// Empties the image cache, then puts the finished picture of every thumbnail of the image database into it. Blocks the
// caller for the whole fill. When the database cannot be read, that is logged and the cache stays empty.
// Any thread.
void prepareImageCache();

// Whether the device is an iPhone of a generation above 3, as its name was at the first call. Any thread.
bool canprepareImageCache();

}  // namespace zelka

// Filling the image cache with every contact's photo at once.
#pragma once

namespace zelka {

// Empties the image cache, then puts the finished picture of every thumbnail of the image database into it. Blocks the
// caller for the whole fill. When the database cannot be read, a line in the log tells it and the cache stays empty.
// Any thread.
void prepareImageCache();

// Whether the device is an iPhone of a generation above 3.
bool canprepareImageCache();

}  // namespace zelka

// What UIKit's classes ask about the phone that they run on. Any thread.
#pragma once

namespace uikit {

// Such as 8 on system 8.4.
int systemMajorVersion();

// Whether the interface reads from the right.
bool rightToLeft();

// Whether views are mirrored: before system 9 UIKit mirrored none, from 9 on it mirrors all that reads from the right.
bool mirrorsViews();

// Points between the edge and the contents of a row: wider phones keep more.
double rowInset();

}  // namespace uikit

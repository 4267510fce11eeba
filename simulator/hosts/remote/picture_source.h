// What a shown picture shows, found out from outside: its pixels are compared with pictures that the observer makes
// itself from the phone's databases and files.
#pragma once

#include <string>

@class UIImage;

namespace hosts {

struct PictureSource {
    // "none"             there is no picture
    // "empty"            every pixel is transparent
    // "photo"            the contact's own thumbnail
    // "linked photo"     the thumbnail of a contact linked with it
    // "default"          the preference bundle's "recent" picture
    // "silhouette"       the bundle's "user_monogram" or "user_monogram_round" picture, bare or on one colour
    // "monogram"         white letters on one colour
    // "plain"            one colour and nothing on it: a monogram of blanks
    // "system monogram"  the system's grey disc, lighter at the top
    // "other"            nothing of these
    std::string kind;
    int contact = 0;     // whose photo it is; 0 for other kinds
    std::string colour;  // "#rrggbb" behind a monogram or silhouette; empty for other kinds
};

// Only the inner disc is looked at, so that the shape cut out (round or square) does not matter. Main thread.
PictureSource sourceOfPicture(UIImage* shown, int contact);

}  // namespace hosts

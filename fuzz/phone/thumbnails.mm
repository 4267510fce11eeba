// Any bytes where an encoded picture is expected, in the library and in the tool that makes contacts.

#include "fuzz/phone/target.h"
#include "simulator/maker/contacts/photo.h"
#include "tests/support/zelkacb.h"

void fuzz::thumbnails(Bytes input) {
    NSData* data = [NSData dataWithBytes:input.data() length:input.size()];
    UIImage* picture = [Utils getImageFromImageData:data];
    if (input.empty()) {
        if (picture != nil) fail("a picture of no bytes");
    } else if (picture == nil || [picture size].width != 80 || [picture size].height != 80 || [picture scale] != 1) {
        fail("not a picture of 80 x 80 points");
    }
    phone::Result<maker::Photo> photo = maker::makePhoto(text(input));
    if (photo && photo->thumbnail.empty()) fail("a thumbnail of no bytes");
    if (!photo && phone::problemOf(photo).empty()) fail("a failure that does not say why");
}

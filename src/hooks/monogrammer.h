// The system's monogram generator: for CallBar's favourites it returns pictures of the library's making.
#pragma once

#include "src/hooks/callbar_controller.h"
#include "src/platform/address_book.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/hook.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

// All three return a picture that the caller owns (+1), as the host's methods do.
UIImage copyMonogramWithInitials(ABMonogrammer self, SEL command, NSString initials);
using CopyMonogramWithInitials = Hook<"ABMonogrammer", "_copyMonogramWithInitials:", &copyMonogramWithInitials>;

UIImage copyMonogramWithImageData(ABMonogrammer self, SEL command, NSData data);
using CopyMonogramWithImageData = Hook<"ABMonogrammer", "_copyMonogramWithImageData:", &copyMonogramWithImageData>;

UIImage monogramForPerson(ABMonogrammer self, SEL command, ABRecordRef person, BOOL* isPersonImage);
using MonogramForPerson = Hook<"ABMonogrammer", "monogramForPerson:isPersonImage:", &monogramForPerson>;

}  // namespace zelka

// The rows that show what the settings do: a contact with a photo and one without, as CallBar's lists show them. Main
// thread.
#pragma once

#include "settings_page/stored_settings.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/uikit/UIImage.h"

namespace zelka {

// The picture beside the sample contact of that name (+0), 40 by 40 points; nil when the settings want none.
UIImage samplePicture(NSString name, bool hasPhoto, const StoredSettings& settings);

// Registers the class of these rows' cells, "ZelkaCBPreviewCell", under PSTableCell. On the loading thread.
void registerPreviewCell();

}  // namespace zelka

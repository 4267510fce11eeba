#include "simulator/frameworks/uikit/graphics/device_traits.h"

#include <cstdlib>

#include "simulator/runtime/process/device.h"

namespace uikit {

int systemMajorVersion() { return std::atoi(phone::device().systemVersion.c_str()); }

bool rightToLeft() { return phone::device().rightToLeft; }

bool mirrorsViews() { return rightToLeft() && systemMajorVersion() >= 9; }

}  // namespace uikit

#include "simulator/frameworks/uikit/graphics/device_traits.h"

#include <cstdlib>

#include "simulator/runtime/process/device.h"

namespace uikit {

int systemMajorVersion() { return std::atoi(phone::device().systemVersion.c_str()); }

bool rightToLeft() { return phone::device().rightToLeft; }

bool mirrorsViews() { return rightToLeft() && systemMajorVersion() >= 9; }

double rowInset() { return phone::device().width >= 414 ? 20 : 15; }

}  // namespace uikit

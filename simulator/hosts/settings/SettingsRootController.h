#pragma once

#include "simulator/frameworks/preferences/preferences.h"

// The first page: the entries of installed tweaks. The system's own rows are left out.
@interface SettingsRootController : PSListController
@end

// Preferences.framework: the pages of the Settings app.
#pragma once

#include "simulator/frameworks/preferences/PSListController.h"
#include "simulator/frameworks/preferences/PSSpecifier.h"
#include "simulator/frameworks/preferences/PSTableCell.h"

// All of UIKit's handles, for files that are not converted yet.
#pragma once

#include "src/platform/foundation.h"
#include "src/platform/uikit/UIApplication.h"
#include "src/platform/uikit/UIBezierPath.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIControl.h"
#include "src/platform/uikit/UIDevice.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UIGraphics.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UIImageView.h"
#include "src/platform/uikit/UILabel.h"
#include "src/platform/uikit/UIScreen.h"
#include "src/platform/uikit/UITableView.h"
#include "src/platform/uikit/UIView.h"

// Pictures of what is on the screen.
#pragma once

#include "simulator/frameworks/uikit/view/UIView.h"

@class UIImage;

// Lays the view's tree out and draws it at the main screen's scale on white, showing the part of it that its bounds
// show. +0. Main thread.
CG_EXTERN UIImage* UISnapshotOfView(UIView* view);

// The same as a PNG file at a path of the desk's file system (not the phone's). NO with *error set when it cannot be
// written.
CG_EXTERN BOOL UIWriteSnapshotOfView(UIView* view, NSString* path, NSError** error);

// The picture view that the library puts into a list's cells: the tags by which a cell's views are found again, and the
// view's size.
#pragma once

#include "src/platform/uikit/UIImageView.h"
#include "src/platform/uikit/UIView.h"

namespace zelka {

// The tag is the only link between a cell and its views: cells are reused, and the host knows nothing of the library.
constexpr NSInteger kPictureTag = 3232;
constexpr NSInteger kNameLabelTag = 3233;
constexpr NSInteger kDetailLabelTag = 3234;

// The picture's width and height, in points.
constexpr CGFloat kPictureSize = 40.0;
// The picture's x in left-to-right lists, in points.
constexpr CGFloat kPictureLeading = 2.0;

// The cell's picture view, or nil.
inline UIImageView pictureViewOf(UIView cell) { return cell.withTag<UIImageView>(kPictureTag); }

// Makes a picture view and adds it to the container, which owns it (+0).
UIImageView addPictureView(UIView container, CGRect frame);

// Takes the picture out of the cell; a cell without one is left alone.
void removePictureView(UIImageView pictureView);

}  // namespace zelka

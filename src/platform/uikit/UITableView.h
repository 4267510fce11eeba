// Table views, their cells and rows. Results are unowned (+0); main thread.
#pragma once

#include "src/platform/uikit/UIImageView.h"

struct UITableView : UIView {
    bool isEditing() const { return zelka::send<bool, "isEditing">(*this); }
};

struct UITableViewCell : UIView {
    UIView contentView() const { return zelka::send<UIView, "contentView">(*this); }
    // Beside the texts; made when it is first asked for.
    UIImageView imageView() const { return zelka::send<UIImageView, "imageView">(*this); }
    bool isEditing() const { return zelka::send<bool, "isEditing">(*this); }
    // The cell's built-in accessory view; private to UIKit.
    UIView defaultAccessoryView() const { return zelka::send<UIView, "_defaultAccessoryView">(*this); }
};

// An index path in a table view's terms.
struct NSIndexPath : NSObject {
    NSInteger row() const { return zelka::send<NSInteger, "row">(*this); }
};

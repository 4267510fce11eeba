// Alerts of systems 7 to 9: a title, a text and a column of buttons over everything else. Main thread.
#pragma once

#include "src/platform/foundation/NSString.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UIView.h"

struct UIAlertView : UIView {
    // With one button, which is number 0. The delegate, which may be nil, is not retained; it is sent
    // alertView:clickedButtonAtIndex:. The method is variadic, but reads no further than a nil list of other buttons.
    [[nodiscard]] static zelka::Owned<UIAlertView> create(NSString title, NSString message, NSObject delegate,
                                                          NSString cancelButton) {
        return zelka::allocInit<UIAlertView, "initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:">(
            title, message, delegate, cancelButton, NSString{});
    }
    // Returns the button's number.
    NSInteger addButton(NSString title) const { return zelka::send<NSInteger, "addButtonWithTitle:">(*this, title); }
    // Returns at once; the system keeps the alert until a button is tapped.
    void show() const { zelka::send<void, "show">(*this); }
};

// The windows of this process, and what stands behind them. Main thread.
#pragma once

#import <Foundation/Foundation.h>

@class UIResponder, UIWindow;

namespace uikit {

// In the order of their making. The list owns none: whoever made a window does.
void addWindow(UIWindow* window);
// Takes it off the list; it is the key window no more.
void removeWindow(UIWindow* window);
NSArray* allWindows();  // +0

UIWindow* keyWindow();  // nil when there is none; unowned
void setKeyWindow(UIWindow* window);

// Every window's next responder: the application, once it is made. Unowned.
UIResponder* responderBehindWindows();
void setResponderBehindWindows(UIResponder* application);

}  // namespace uikit

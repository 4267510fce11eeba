#include "simulator/frameworks/uikit/controller/window_list.h"

#include <vector>

namespace uikit {
namespace {

std::vector<UIWindow*>& windows() {
    static std::vector<UIWindow*> all;
    return all;
}

UIWindow* currentKeyWindow = nil;
UIResponder* application = nil;

}  // namespace

void addWindow(UIWindow* window) { windows().push_back(window); }

void removeWindow(UIWindow* window) {
    std::erase(windows(), window);
    if (currentKeyWindow == window) currentKeyWindow = nil;
}

NSArray* allWindows() { return [NSArray arrayWithObjects:windows().data() count:windows().size()]; }

UIWindow* keyWindow() { return currentKeyWindow; }
void setKeyWindow(UIWindow* window) { currentKeyWindow = window; }

UIResponder* responderBehindWindows() { return application; }
void setResponderBehindWindows(UIResponder* responder) { application = responder; }

}  // namespace uikit

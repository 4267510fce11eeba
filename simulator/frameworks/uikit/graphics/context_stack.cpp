#include "simulator/frameworks/uikit/graphics/context_stack.h"

#include <vector>

namespace uikit {
namespace {

struct ContextStack {
    std::vector<StackedContext> entries;
    ~ContextStack() {
        while (!entries.empty()) {
            pop();
        }
    }
    void pop() {
        CGContextRelease(entries.back().context);
        entries.pop_back();
    }
};

thread_local ContextStack stack;

}  // namespace

void pushContext(const StackedContext& adopted) { stack.entries.push_back(adopted); }

const StackedContext* topContext() { return stack.entries.empty() ? nullptr : &stack.entries.back(); }

void popContext(bool imageContext) {
    if (!stack.entries.empty() && stack.entries.back().isImageContext == imageContext) {
        stack.pop();
    }
}

CGContextRef currentContext() { return stack.entries.empty() ? nullptr : stack.entries.back().context; }

}  // namespace uikit

#include "src/platform/send.h"

#include <cstdio>
#include <cstdlib>

namespace zelka::detail {

void verifyCall(Class cls, SEL selector, const char* encoding) {
    Method method = class_getInstanceMethod(cls, selector);
    if (method == nullptr) return;  // forwarded, or about to be refused by the receiver itself
    const char* registered = method_getTypeEncoding(method);
    if (registered == nullptr || encodingsAgree(registered, encoding)) return;
    std::fprintf(stderr, "ZelkaCB: %s implements %s as \"%s\", but is called as \"%s\"\n", class_getName(cls),
                 sel_getName(selector), registered, encoding);
    std::abort();
}

}  // namespace zelka::detail

#include "src/platform/runtime.h"

#include <cstdio>
#include <cstdlib>

namespace zelka::detail {

void missingClass(const char* name) {
    std::fprintf(stderr, "ZelkaCB: this process has no class %s, which every process of the platform should have\n",
                 name);
    std::abort();
}

}  // namespace zelka::detail

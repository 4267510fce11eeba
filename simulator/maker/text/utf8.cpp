#include "simulator/maker/text/utf8.h"

#include <glib.h>

#include "simulator/runtime/glib_pointers.h"

namespace maker {

std::string madeValid(const std::string& text) {
    const phone::GText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    return valid.get();
}

}  // namespace maker

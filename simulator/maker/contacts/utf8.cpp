#include "simulator/maker/contacts/utf8.h"

#include <glib.h>

#include <memory>

namespace phone {

std::string madeValid(const std::string& text) {
    struct Free {
        void operator()(gchar* made) const { g_free(made); }
    };
    const std::unique_ptr<gchar, Free> valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    return valid.get();
}

}  // namespace phone

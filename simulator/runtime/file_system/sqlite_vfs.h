#pragma once

#include "simulator/runtime/result.h"

namespace phone {

// Makes SQLite open databases by phone paths: from now on its default file system is the machine's own with every name
// mapped into the phone root. Before the first database is opened.
[[nodiscard]] Status registerPhoneFileSystem();

}  // namespace phone

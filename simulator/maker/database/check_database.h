// Whether files are the phone's databases, before anything is read from them or written to them.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/common/result.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"

namespace maker {

// From outside: that it is there, a file, and begins as SQLite's databases do.
[[nodiscard]] Status checkFile(const std::filesystem::path& file, const DatabaseShape& shape);

// From inside: that no page is damaged and that the tables and columns of that shape are there. `name` is what the
// message calls it.
[[nodiscard]] Status checkContents(const Database& database, const std::string& name, const DatabaseShape& shape);

// From outside and from inside, for a database in its place on a phone. It is only read.
[[nodiscard]] Status checkDatabase(const std::filesystem::path& file, const DatabaseShape& shape);

}  // namespace maker

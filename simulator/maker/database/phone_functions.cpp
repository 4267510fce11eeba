#include "simulator/maker/database/phone_functions.h"

#include <glib.h>

#include <algorithm>
#include <cstring>
#include <regex>
#include <set>
#include <string>

#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

int compareBytes(void* /*nothing*/, int lengthA, const void* a, int lengthB, const void* b) {
    const int order = std::memcmp(a, b, static_cast<std::size_t>(std::min(lengthA, lengthB)));
    return order != 0 ? order : lengthA - lengthB;
}

void addCollation(void* /*nothing*/, sqlite3* database, int /*encoding*/, const char* name) {
    sqlite3_create_collation(database, name, SQLITE_UTF8, nullptr, compareBytes);
}

void returnGuid(sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
    const phone::GText guid(g_uuid_string_random());
    const phone::GText capitals(g_ascii_strup(guid.get(), -1));
    sqlite3_result_text(context, capitals.get(), -1, SQLITE_TRANSIENT);
}

void returnFirst(sqlite3_context* context, int count, sqlite3_value** values) {
    if (count > 0) {
        sqlite3_result_value(context, values[0]);
    } else {
        sqlite3_result_null(context);
    }
}

// Every text of the first column.
std::set<std::string> textsOf(sqlite3* database, const char* sql) {
    std::set<std::string> texts;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK) return texts;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        if (text != nullptr) texts.insert(text);
    }
    sqlite3_finalize(statement);
    return texts;
}

// Names in front of a bracket. Some are tables or words of SQL: a function of such a name does no harm.
std::set<std::string> calledIn(const std::set<std::string>& triggers) {
    static const std::regex call("([A-Za-z_][A-Za-z0-9_]*)[ \t\n]*\\(");
    std::set<std::string> names;
    for (const std::string& trigger : triggers) {
        for (std::sregex_iterator match(trigger.begin(), trigger.end(), call), end; match != end; ++match) {
            const std::string name = (*match)[1];
            names.insert(phone::GText(g_ascii_strdown(name.c_str(), -1)).get());
        }
    }
    return names;
}

}  // namespace

void providePhoneFunctions(sqlite3* database) {
    sqlite3_collation_needed(database, nullptr, addCollation);
    const std::set<std::string> called =
        calledIn(textsOf(database, "SELECT sql FROM sqlite_master WHERE type = 'trigger'"));
    if (called.empty()) return;
    const std::set<std::string> known = textsOf(database, "SELECT lower(name) FROM pragma_function_list");
    for (const std::string& name : called) {
        if (known.contains(name)) continue;
        const bool guid = name.find("guid") != std::string::npos || name.find("uuid") != std::string::npos;
        sqlite3_create_function(database, name.c_str(), -1, SQLITE_UTF8, nullptr, guid ? returnGuid : returnFirst,
                                nullptr, nullptr);
    }
}

}  // namespace maker

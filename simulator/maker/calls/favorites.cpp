#include "simulator/maker/calls/favorites.h"

#include <fstream>
#include <string>

#include "simulator/maker/contacts/utf8.h"
#include "simulator/maker/database/database.h"
#include "simulator/maker/database/schema.h"

namespace maker {
namespace {

// Contact IDs have 32 bits; a history may hold any number.
constexpr const char* kMostCalled =
    "SELECT id, max(address) FROM call WHERE id BETWEEN 1 AND 2147483647 GROUP BY id "
    "ORDER BY count(*) DESC, max(date) DESC, id LIMIT 12";

// Written as PropertyList-1.0.dtd has it. XML knows no control characters but these.
bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n'; }

// As XML, which is UTF-8.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : madeValid(text)) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (isPlain(c))
            result += c;
    }
    return result;
}

}  // namespace

std::filesystem::path favoritesPath(const std::filesystem::path& root) {
    return root / "private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist";
}

Status writeFavorites(const std::filesystem::path& root) {
    Result<Database> calls = Database::openToRead(root / callsShape().path);
    if (!calls) return failure(calls);
    Statement statement = calls->prepare(kMostCalled);
    const std::filesystem::path file = favoritesPath(root);
    std::ofstream out(file, std::ios::binary);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<array>\n";
    while (statement.step()) {
        out << "<dict><key>ABUid</key><integer>" << statement.integer(0) << "</integer><key>Value</key><string>"
            << escaped(statement.text(1)) << "</string></dict>\n";
    }
    out << "</array>\n</plist>\n";
    out.close();
    if (!out) return failure(file.string() + ": cannot be written");
    return statement.status();
}

}  // namespace maker

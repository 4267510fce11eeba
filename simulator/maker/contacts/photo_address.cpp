#include "simulator/maker/contacts/photo_address.h"

#include <glib.h>

#include <algorithm>
#include <string_view>
#include <system_error>

#include "simulator/maker/common/read_file.h"
#include "simulator/runtime/glib_pointers.h"

namespace maker {
namespace {

namespace fs = std::filesystem;

bool startsWith(const std::string& text, std::string_view prefix) {
    return g_ascii_strncasecmp(text.c_str(), prefix.data(), prefix.size()) == 0;
}

Result<std::string> readDataAddress(const std::string& address) {
    std::size_t comma = address.find(',');
    if (comma == std::string::npos) return failure("a data: address without data");
    std::string data = address.substr(comma + 1);
    if (address.substr(0, comma).find(";base64") == std::string::npos) return failure("a data: address not in base64");
    gsize length = 0;
    phone::GText bytes(reinterpret_cast<gchar*>(g_base64_decode(data.c_str(), &length)));
    return std::string(bytes.get(), length);
}

bool isBelow(const fs::path& file, const fs::path& folder) {
    if (folder.empty()) return false;
    std::error_code error;
    const fs::path place = fs::weakly_canonical(fs::absolute(folder, error), error);
    const auto [end, inFile] = std::mismatch(place.begin(), place.end(), file.begin(), file.end());
    return !error && end == place.end();
}

Result<std::string> readFileAddress(std::string address, const PhotoFolders& folders) {
    if (startsWith(address, "file:")) address.erase(0, 5);
    if (startsWith(address, "//localhost/")) address.erase(0, 11);
    if (startsWith(address, "//")) address.erase(0, 2);
    phone::GText unescaped(g_uri_unescape_string(address.c_str(), nullptr));
    if (!unescaped || !*unescaped) return failure("the address " + address + " names no file");
    std::error_code error;
    const fs::path beside = folders.beside.empty() ? fs::path(".") : folders.beside;
    const fs::path file = fs::weakly_canonical(fs::absolute(beside / unescaped.get(), error), error);
    // Whoever wrote the file must not choose among all that its reader may open.
    if (error || (!isBelow(file, beside) && !isBelow(file, folders.allowed))) {
        return failure(std::string(unescaped.get()) +
                       " is outside of the folder that the contacts are in; --photos FOLDER allows another");
    }
    // Devices and pipes may never end; only the person at the command line can mean one.
    if (fs::is_other(file, error)) return failure(file.string() + ": is not a file");
    return readFile(file);
}

}  // namespace

Result<std::string> readPhotoAddress(const std::string& address, const PhotoFolders& folders) {
    if (startsWith(address, "data:")) return readDataAddress(address);
    if (address.find("://") != std::string::npos && !startsWith(address, "file:"))
        return failure("pictures are not fetched from " + address);
    return readFileAddress(address, folders);
}

}  // namespace maker

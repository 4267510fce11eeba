// The pictures that a file of contacts refers to.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/common/result.h"

namespace maker {

// Where pictures may be read from: below the folder of the file that names them, and below one more, if it is not
// empty.
struct PhotoFolders {
    std::filesystem::path beside;
    std::filesystem::path allowed;
};

// The bytes behind a `data:` address in base64, a `file:` address or a plain path; a relative one starts at
// `folders.beside`. Fails for a file outside the folders (links are followed first), and for what would have to be
// fetched.
Result<std::string> readPhotoAddress(const std::string& address, const PhotoFolders& folders);

}  // namespace maker

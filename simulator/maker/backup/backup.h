// The backup that a computer makes of a phone: a folder of files that are named by the SHA-1 of where they came from,
// with property lists that describe the phone. Up to iOS 9 the files lie side by side, from 10 on in folders named by
// the first two digits. Both as publicly documented by those who read them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/result.h"
#include "simulator/runtime/process/device.h"

namespace maker {

// What of a backup has a place on the stand-in phone; a path that is empty is not in it.
struct Backup {
    std::filesystem::path addressBook, images, calls, favorites;
    phone::Device device;
};

// Reads a backup's description and finds its files; those whose write-ahead log is in the backup, too, are put together
// in `workplace`, a folder of the caller's. The device has the model, the system's version, name, language and region
// that the backup names, and the screen of that model; of a model that is not known, that of its kind, which is a
// finding. Fails for a folder that is no backup, saying which of its folders are, and for an encrypted one, saying what
// to do.
Result<Backup> readBackup(const std::filesystem::path& folder, const std::filesystem::path& workplace,
                          Findings& findings);

}  // namespace maker

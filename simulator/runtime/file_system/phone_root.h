#pragma once

// The phone's file system: a directory of this machine, shaped like a phone's, that a process takes for its "/".

#include <filesystem>
#include <string>
#include <string_view>

namespace phone {

// The phone root of this process, canonical and absolute; empty until boot() (process.h). Any thread.
const std::filesystem::path& root();

// Sets root(). For boot() alone, before other threads exist; the path is canonical and absolute.
void setRoot(std::filesystem::path canonical);

// The path on this machine for a path of the phone. An absolute phone path is resolved inside `root` as a phone's
// kernel would: ".." never climbs above it, and symbolic links, absolute ones too, lead to places inside. A last
// component that is a link is kept as the link, unless only following it here keeps it inside. Paths that already are
// in the root come back unchanged, and so do relative ones without "..": the process's working directory is in the
// root. A path that runs into a loop of links comes back as far as it could be resolved: opening it fails. Any thread.
std::string hostPath(std::string_view phonePath);
std::string hostPath(std::string_view phonePath, const std::filesystem::path& root);

// The inverse: the phone's name for a path in this process's root; other paths come back unchanged.
std::string phonePath(std::string_view hostPath);

}  // namespace phone

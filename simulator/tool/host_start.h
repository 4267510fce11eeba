// Starting the hosts of a phone that may be damaged.
#pragma once

#include <filesystem>
#include <memory>

#include "simulator/hosts/remote/host_process.h"

namespace tool {

// A host with the extension in it, or without it if that is what is wanted; the Settings app never has it. Throws
// Problem, with what the injector says, when the extension could not be loaded: nothing of what such a host shows would
// be what was asked for.
std::unique_ptr<hosts::HostProcess> startHost(hosts::HostKind kind, const std::filesystem::path& root,
                                              bool withoutExtension);

// Reports on standard error which of the phone's databases are missing or damaged. Hosts go on without them, as on a
// phone, and show empty lists.
void warnOfDamage(const std::filesystem::path& root);

}  // namespace tool

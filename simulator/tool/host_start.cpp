#include "simulator/tool/host_start.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/maker/database/check_database.h"
#include "simulator/runtime/process/device.h"
#include "simulator/tool/built_extension.h"
#include "simulator/tool/places.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr const char* kExtension = "ZelkaCB";

bool isExtension(const nlohmann::json& library) { return fs::path(library.get<std::string>()).stem() == kExtension; }

void requireExtension(hosts::HostProcess& host, hosts::HostKind kind, const fs::path& root) {
    const nlohmann::json loaded = host.call({{"do", "info"}}).at("libraries");
    if (std::any_of(loaded.begin(), loaded.end(), isExtension)) return;
    std::string reason = host.standardError();
    if (reason.empty()) {
        reason = std::string("there is no filter ") + kExtension + ".plist that names " +
                 hosts::bundleIdentifier(kind) + " in " + (root / "Library/MobileSubstrate/DynamicLibraries").string();
    }
    while (reason.back() == '\n') reason.pop_back();
    throw Problem(root.string() +
                  ": the extension is not loaded; \"phonesim install\" installs it, and \"phonesim shot " +
                  "--without-extension\" does without\n" + reason);
}

}  // namespace

std::unique_ptr<hosts::HostProcess> startHost(hosts::HostKind kind, const fs::path& root, bool withoutExtension) {
    hosts::HostOptions options;
    options.root = root;
    options.withoutExtension = withoutExtension;
    if (std::getenv("PHONESIM_HOSTS") == nullptr) {
        const fs::path program = places(processorOf(root)).hosts / hosts::programName(kind);
        if (fs::exists(program)) options.program = program;
    }
    auto host = std::make_unique<hosts::HostProcess>(kind, options);
    const bool isServed = kind != hosts::HostKind::preferences;
    if (isServed && !withoutExtension) requireExtension(*host, kind, root);
    return host;
}

void warnOfDamage(const fs::path& root) {
    const phone::Result<phone::Device> device = phone::readDevice(root);
    // A host refuses such a phone in its own words.
    if (!device) return;
    for (const maker::DatabaseShape* shape : maker::databaseShapes(*device)) {
        const phone::Status sound = maker::checkDatabase(root / shape->path, *shape);
        if (!sound) std::fprintf(stderr, "phonesim: %s\n", sound.error().message.c_str());
    }
}

}  // namespace tool

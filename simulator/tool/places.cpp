#include "simulator/tool/places.h"

#include <sstream>

#include "simulator/runtime/process/processor.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

// Paths relative to the folder of the program; the build description defines them.
struct Layout {
    const char *hosts, *library, *filter, *settingsBundle, *settingsEntry;
};
constexpr Layout kLayouts[] = {
    {INSTALLED_HOSTS, INSTALLED_LIBRARY, INSTALLED_FILTER, INSTALLED_BUNDLE, INSTALLED_ENTRY},
    {BUILT_HOSTS, BUILT_LIBRARY, BUILT_FILTER, BUILT_BUNDLE, BUILT_ENTRY},
};

fs::path ownFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

Places ownPlaces() {
    const fs::path folder = ownFolder();
    std::string looked;
    for (const Layout& layout : kLayouts) {
        const auto place = [&folder](const char* relative) { return (folder / relative).lexically_normal(); };
        if (fs::exists(place(layout.library))) {
            return {place(layout.hosts), place(layout.library), place(layout.filter), place(layout.settingsBundle),
                    place(layout.settingsEntry)};
        }
        looked += "\n  " + place(layout.library).string();
    }
    throw Problem("the extension library is not where this program expects it. Looked at:" + looked);
}

}  // namespace

std::vector<std::string> processors() {
    std::vector<std::string> names{phone::kProcessor};
    std::istringstream emulated(EMULATED_PROCESSORS);
    for (std::string name; emulated >> name;) {
        if (name != phone::kProcessor) names.push_back(name);
    }
    return names;
}

Places places(const std::string& processor) {
    Places found = ownPlaces();
    if (processor == phone::kProcessor) return found;
    const fs::path build = (ownFolder() / BUILT_ROOT / ".." / processor).lexically_normal();
    found.hosts = build / "simulator/hosts";
    found.library = build / "device/ZelkaCB_phone/ZelkaCB.dylib";
    found.settingsBundle = build / "resources/ZelkaCBSettings.bundle";
    if (fs::exists(found.hosts) && fs::exists(found.library)) return found;
    throw Problem("hosts and library for phones with the processor " + processor +
                  " are not built; script/test-arm builds them. Looked at:\n  " + found.hosts.string() + "\n  " +
                  found.library.string());
}

}  // namespace tool

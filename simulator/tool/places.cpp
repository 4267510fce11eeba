#include "simulator/tool/places.h"

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

}  // namespace

Places places() {
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
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

}  // namespace tool

#include "src/bootstrap/hook_table.h"

#include "src/settings/live_changes.h"

namespace {

constexpr HookRow kHookTable[] = {
    AddedMethod<"CallBarControllerModern", "zelkaCBSettingsChanged:", "v@:@@", &favoritesStripSettingsChanged>::row,
    AddedMethod<"CallBarABViewController", "zelkaCBSettingsChanged:", "v@:@@", &callListSettingsChanged>::row,
};

}  // namespace

std::span<const HookRow> hookTable() { return kHookTable; }

void installHooks() {
    std::string_view className;
    Class cls = nullptr;
    for (const HookRow& row : hookTable()) {
        // Each class is looked up once: its rows stand together.
        if (className != row.className) {
            className = row.className;
            cls = objc_getClass(row.className);
        }
        if (cls != nullptr) row.install(cls);
    }
}

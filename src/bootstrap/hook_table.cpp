#include "src/bootstrap/hook_table.h"

#include "src/changes/settings_changes.h"
#include "src/hooks/callbar_controller.h"
#include "src/hooks/contacts_list.h"
#include "src/hooks/monogrammer.h"
#include "src/hooks/pass_through.h"
#include "src/hooks/recents_list.h"
#include "src/hooks/springboard.h"
#include "src/hooks/transparent_cell.h"

namespace {

constexpr HookRow kHookTable[] = {
    hooks::ApplicationDidFinishLaunching::row,
    hooks::CopyMonogramWithInitials::row,
    hooks::CopyMonogramWithImageData::row,
    hooks::MonogramForPerson::row,
    hooks::ControllerViewDidLoad::row,
    hooks::ControllerToggle<"toggleFavorites:">::row,
    hooks::ControllerToggle<"toggleRecents:">::row,
    hooks::ControllerToggle<"toggleContacts:">::row,
    hooks::ControllerMonogrammer::row,
    AddedMethod<"CallBarControllerModern", "zelkaCBSettingsChanged:", "v@:@@", &favoritesStripSettingsChanged>::row,
    hooks::ViewDidAppear<"CallBarFavoritesViewController">::row,
    hooks::RecentsViewDidLoad::row,
    hooks::ViewDidAppear<"CallBarABViewController">::row,
    AddedMethod<"CallBarABViewController", "zelkaCBSettingsChanged:", "v@:@@", &callListSettingsChanged>::row,
    hooks::RecentsCell::row,
    hooks::RecentsDealloc::row,
    hooks::CellInit::row,
    hooks::CellInitialize::row,
    hooks::CellLayout::row,
    hooks::ViewDidAppear<"ABMembersViewController">::row,
    hooks::MemberDrawText::row,
    hooks::MemberLayout::row,
    hooks::MemberCell::row,
    hooks::FoundMemberCell::row,
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

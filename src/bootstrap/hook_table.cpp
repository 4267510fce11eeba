#include "src/bootstrap/hook_table.h"

#include "src/hooks/callbar_controller.h"
#include "src/hooks/contacts_list.h"
#include "src/hooks/monogrammer.h"
#include "src/hooks/pass_through.h"
#include "src/hooks/recents_list.h"
#include "src/hooks/springboard.h"
#include "src/hooks/transparent_cell.h"

namespace zelka {
namespace {

constexpr HookRow kHookTable[] = {
    ApplicationDidFinishLaunching::row,
    CopyMonogramWithInitials::row,
    CopyMonogramWithImageData::row,
    MonogramForPerson::row,
    ControllerViewDidLoad::row,
    ControllerToggle<"toggleFavorites:">::row,
    ControllerToggle<"toggleRecents:">::row,
    ControllerToggle<"toggleContacts:">::row,
    ControllerMonogrammer::row,
    ControllerSettingsChanged::row,
    ViewDidAppear<"CallBarFavoritesViewController">::row,
    RecentsViewDidLoad::row,
    ViewDidAppear<"CallBarABViewController">::row,
    RecentsSettingsChanged::row,
    RecentsCell::row,
    RecentsDealloc::row,
    CellInit::row,
    CellInitialize::row,
    CellLayout::row,
    ViewDidAppear<"ABMembersViewController">::row,
    MemberDrawText::row,
    MemberLayout::row,
    MemberCell::row,
    FoundMemberCell::row,
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

}  // namespace zelka

// What runs while the Settings app loads the bundle's executable.
#include "settings_page/controller.h"
#include "settings_page/preview.h"
#include "src/platform/foundation/NSAutoreleasePool.h"

namespace zelka {
namespace {

[[gnu::constructor]] void loadPage() {
    AutoreleasePool pool;
    registerPreviewCell();
    registerController();
}

}  // namespace
}  // namespace zelka

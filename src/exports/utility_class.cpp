#include "src/exports/utility_class.h"

#include "src/cache/image_cache.h"
#include "src/exports/cache_methods.h"
#include "src/exports/device_methods.h"
#include "src/exports/initials_methods.h"
#include "src/exports/lookup_methods.h"
#include "src/exports/monogram_methods.h"
#include "src/exports/phone_number_methods.h"
#include "src/exports/shaping_methods.h"
#include "src/settings/settings.h"

namespace zelka {
namespace {

// The runtime sends it before the class's first other message.
void initialize(Class cls) {
    // Subclasses inherit the method and are initialised too.
    if (cls == platformClass<"ZelkaCBUtils">()) initImageCache();
}

constexpr MethodRow kOwnMethods[] = {
    receiverMethod<"initialize", &initialize>(),
    classMethod<"isZelkaCBOnlyOn", bool(), &isZelkaCBOnlyOn>(),
    classMethod<"isRoundedPicsEnabled", bool(), &isRoundedPicsEnabled>(),
    classMethod<"isMonogramEnabled", bool(), &isMonogramEnabled>(),
};

}  // namespace

void registerUtilityClass() {
    Class metaclass = metaclassOf(registerClass("ZelkaCBUtils", platformClass<NSObject>(), {}, kOwnMethods, {}));
    for (std::span<const MethodRow> methods : {deviceMethods(), phoneNumberMethods(), cacheMethods(), shapingMethods(),
                                               monogramMethods(), initialsMethods(), lookupMethods()}) {
        addMethods(metaclass, methods);
    }
}

}  // namespace zelka

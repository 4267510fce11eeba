#include "src/platform/class_builder.h"

#include <bit>

#include "src/platform/foundation/NSObject.h"

namespace zelka {

void addMethods(Class cls, std::span<const MethodRow> methods) {
    if (cls == nullptr) return;
    for (const MethodRow& method : methods) method.install(cls);
}

void addProperties(Class cls, std::span<const PropertyRow> properties) {
    if (cls == nullptr) return;
    for (const PropertyRow& property : properties) {
        // In a compiler's order: type, dynamic, nonatomic, variable.
        const objc_property_attribute_t stored[] = {{"T", property.encoding}, {"N", ""}, {"V", property.variable}};
        const objc_property_attribute_t dynamic[] = {{"T", property.encoding}, {"D", ""}, {"N", ""}};
        class_addProperty(cls, property.name, property.variable != nullptr ? stored : dynamic, 3);
    }
}

Class registerClass(const char* name, Class superclass, std::span<const IvarRow> ivars,
                    std::span<const MethodRow> classMethods, std::span<const MethodRow> instanceMethods) {
    if (Class existing = objc_getClass(name)) return existing;
    if (superclass == nullptr) return nullptr;  // it would be a root class
    Class cls = objc_allocateClassPair(superclass, name, 0);
    if (cls == nullptr) return nullptr;
    for (const IvarRow& variable : ivars) {
        // The runtime takes the alignment as a power of two.
        auto alignment = static_cast<std::uint8_t>(std::countr_zero(variable.size));
        class_addIvar(cls, variable.name, variable.size, alignment, variable.encoding);
    }
    objc_registerClassPair(cls);
    addMethods(cls, instanceMethods);
    addMethods(metaclassOf(cls), classMethods);
    return cls;
}

}  // namespace zelka

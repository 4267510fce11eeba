#include "src/platform/class_builder.h"

#include <bit>

void addMethods(Class cls, std::span<const MethodRow> methods) {
    if (cls == nullptr) return;
    for (const MethodRow& method : methods) method.install(cls);
}

Class registerClass(const char* name, std::span<const IvarRow> ivars, std::span<const MethodRow> classMethods,
                    std::span<const MethodRow> instanceMethods) {
    if (Class existing = objc_getClass(name)) return existing;
    Class cls = objc_allocateClassPair(platformClass<"NSObject">(), name, 0);
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

#include "simulator/frameworks/objc/runtime.h"

#include <stdlib.h>
#include <string.h>

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

struct objc_property {
    std::string name;
    std::string attributes;
};

namespace {

// Kept for ever, as on a phone: a property is handed out by its address.
using Properties = std::vector<std::unique_ptr<objc_property>>;

struct Register {
    std::mutex lock;
    std::unordered_map<Class, Properties> classes;
};

Register& properties() {
    // Never destroyed: classes outlive static destructors.
    static auto* all = new Register;
    return *all;
}

objc_property* ownProperty(const Register& all, Class cls, const char* name) {
    auto known = all.classes.find(cls);
    if (known == all.classes.end()) return nullptr;
    for (const auto& property : known->second) {
        if (property->name == name) return property.get();
    }
    return nullptr;
}

std::string joined(const objc_property_attribute_t* attributes, unsigned count) {
    std::string text;
    for (unsigned i = 0; i < count; ++i) {
        if (i > 0) text += ',';
        text += std::string(attributes[i].name) + attributes[i].value;
    }
    return text;
}

}  // namespace

// The GNU runtime has no such function, and its questions about properties always find none; the ones below stand ahead
// of them by definition order.
BOOL class_addProperty(Class cls, const char* name, const objc_property_attribute_t* attributes, unsigned count) {
    if (cls == Nil || name == nullptr) return NO;
    Register& all = properties();
    std::lock_guard guard(all.lock);
    if (ownProperty(all, cls, name) != nullptr) return NO;
    all.classes[cls].push_back(std::make_unique<objc_property>(objc_property{name, joined(attributes, count)}));
    return YES;
}

extern "C" {

objc_property_t class_getProperty(Class cls, const char* name) {
    if (name == nullptr) return nullptr;
    Register& all = properties();
    std::lock_guard guard(all.lock);
    for (; cls != Nil; cls = class_getSuperclass(cls)) {
        if (objc_property* property = ownProperty(all, cls, name)) return property;
    }
    return nullptr;
}

objc_property_t* class_copyPropertyList(Class cls, unsigned* count) {
    Register& all = properties();
    std::lock_guard guard(all.lock);
    auto known = all.classes.find(cls);
    const size_t found = known != all.classes.end() ? known->second.size() : 0;
    if (count != nullptr) *count = static_cast<unsigned>(found);
    if (found == 0) return nullptr;
    auto* list = static_cast<objc_property_t*>(calloc(found + 1, sizeof(objc_property_t)));
    if (list == nullptr) abort();
    for (size_t i = 0; i < found; ++i) list[i] = known->second[i].get();
    return list;
}

const char* property_getName(objc_property_t property) {
    return property != nullptr ? property->name.c_str() : nullptr;
}

const char* property_getAttributes(objc_property_t property) {
    return property != nullptr ? property->attributes.c_str() : nullptr;
}
}

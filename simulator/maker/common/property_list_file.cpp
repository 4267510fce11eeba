#include "simulator/maker/common/property_list_file.h"

#include <cstdint>
#include <cstdlib>

#include "simulator/maker/common/read_file.h"

namespace maker {

Result<PropertyList> readPropertyListFile(const std::filesystem::path& file) {
    const Result<std::string> bytes = readFile(file);
    if (!bytes) return failure(bytes);
    plist_t list = nullptr;
    plist_from_memory(bytes->data(), static_cast<std::uint32_t>(bytes->size()), &list);
    if (list == nullptr) return failure(file.string() + ": is no property list");
    return PropertyList(list);
}

plist_t valueAt(plist_t list, std::initializer_list<const char*> keys) {
    for (const char* key : keys) {
        if (list == nullptr || plist_get_node_type(list) != PLIST_DICT) return nullptr;
        list = plist_dict_get_item(list, key);
    }
    return list;
}

std::optional<std::string> textAt(plist_t list, std::initializer_list<const char*> keys) {
    plist_t value = valueAt(list, keys);
    if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return std::nullopt;
    char* text = nullptr;
    plist_get_string_val(value, &text);
    if (text == nullptr) return std::nullopt;
    std::string result = text;
    std::free(text);
    return result;
}

bool isTrueAt(plist_t list, std::initializer_list<const char*> keys) {
    plist_t value = valueAt(list, keys);
    if (value == nullptr || plist_get_node_type(value) != PLIST_BOOLEAN) return false;
    std::uint8_t isTrue = 0;
    plist_get_bool_val(value, &isTrue);
    return isTrue != 0;
}

}  // namespace maker

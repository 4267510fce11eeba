// The list of favourites as it lies on a phone, changed an entry at a time.
#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "simulator/maker/calls/favorites.h"
#include "simulator/maker/common/property_list_file.h"
#include "simulator/maker/text/utf8.h"

namespace maker {
namespace {

namespace fs = std::filesystem;

// A phone without a file has an empty list.
Result<PropertyList> readList(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) return PropertyList(plist_new_array());
    Result<PropertyList> list = readPropertyListFile(file);
    if (list && plist_get_node_type(list->get()) != PLIST_ARRAY)
        return failure(file.string() + ": is no list of favourites");
    return list;
}

Status writeList(const fs::path& file, const PropertyList& list) {
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(list.get(), &xml, &length);
    const std::string part = file.string() + ".part";
    std::ofstream out(part, std::ios::binary | std::ios::trunc);
    out.write(xml, length);
    out.close();
    std::free(xml);
    std::error_code error;
    if (out) fs::rename(part, file, error);
    if (!out || error) return failure(file.string() + ": cannot be written");
    return {};
}

// Where a contact stands in it; the list's length when it does not.
std::uint32_t placeOf(const PropertyList& list, int contact) {
    const std::uint32_t count = plist_array_get_size(list.get());
    for (std::uint32_t i = 0; i < count; ++i) {
        plist_t identifier = valueAt(plist_array_get_item(list.get(), i), {"ABUid"});
        if (identifier == nullptr || plist_get_node_type(identifier) != PLIST_UINT) continue;
        std::uint64_t value = 0;
        plist_get_uint_val(identifier, &value);
        if (value == static_cast<std::uint64_t>(contact)) return i;
    }
    return count;
}

}  // namespace

Status addFavorite(const fs::path& root, int contact, const std::string& address) {
    const fs::path file = favoritesPath(root);
    const Result<PropertyList> list = readList(file);
    if (!list) return failure(list);
    const std::uint32_t place = placeOf(*list, contact);
    if (place == plist_array_get_size(list->get())) {
        plist_t entry = plist_new_dict();
        plist_dict_set_item(entry, "ABUid", plist_new_uint(static_cast<std::uint64_t>(contact)));
        plist_array_append_item(list->get(), entry);
    }
    plist_dict_set_item(plist_array_get_item(list->get(), place), "Value",
                        plist_new_string(madeValid(address).c_str()));
    return writeList(file, *list);
}

Result<bool> removeFavorite(const fs::path& root, int contact) {
    const fs::path file = favoritesPath(root);
    const Result<PropertyList> list = readList(file);
    if (!list) return failure(list);
    const std::uint32_t place = placeOf(*list, contact);
    if (place == plist_array_get_size(list->get())) return false;
    plist_array_remove_item(list->get(), place);
    return writeList(file, *list).map([] { return true; });
}

Result<long> countFavorites(const fs::path& root) {
    const Result<PropertyList> list = readList(favoritesPath(root));
    if (!list) return failure(list);
    return static_cast<long>(plist_array_get_size(list->get()));
}

}  // namespace maker

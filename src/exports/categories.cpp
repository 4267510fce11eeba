#include "src/exports/categories.h"

#include <array>

#include "src/hooks/parent_table.h"

namespace hooks {
namespace {

// The association's key: the runtime goes by the address and reads no text.
constexpr char kContactIDKey[] = "ZelkaCB_ContactID";

NSInteger contactID(NSObject object) {
    return NSNumber{{objc_getAssociatedObject(object.object, kContactIDKey)}}.integerValue();
}

void setContactID(NSObject object, NSInteger value) {
    objc_setAssociatedObject(object.object, kContactIDKey, NSNumber::ofInteger(value).object,
                             kAssociationRetainNonatomic);
}

constexpr std::array kObjectMethods = {
    receiverMethod<"ZelkaCB_contactID", &contactID>(),
    receiverMethod<"setZelkaCB_contactID:", &setContactID>(),
};

constexpr std::array kTableViewCellMethods = {
    receiverMethod<"parentTableView", &parentTableView>(),
};

}  // namespace

std::span<const MethodRow> objectMethods() { return kObjectMethods; }

std::span<const MethodRow> tableViewCellMethods() { return kTableViewCellMethods; }

}  // namespace hooks

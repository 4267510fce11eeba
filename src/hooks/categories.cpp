#include "src/hooks/categories.h"

#include <array>

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

UITableView parentTableView(UITableViewCell cell) {
    Class tableViewClass = platformClass<"UITableView">();
    UIView view = cell.superview();
    while (view && !isKindOf(view, tableViewClass)) view = view.superview();
    return as<UITableView>(view);
}

}  // namespace hooks

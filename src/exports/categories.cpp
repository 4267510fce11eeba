#include "src/exports/categories.h"

#include "src/hooks/parent_table.h"
#include "src/platform/class_builder.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIImage.h"
#include "src/platform/uikit/UITableView.h"
#include "src/render/colors.h"
#include "src/render/shaping.h"

namespace zelka {
namespace {

// The colour of a code laid out 0x00RRGGBB, opaque; the top byte is ignored.
UIColor colorWithPackedCode(std::int32_t code) {
    return colorWithComponents((code >> 16) & 0xFF, (code >> 8) & 0xFF, code & 0xFF, 1.0);
}

constexpr MethodRow kColorClassMethods[] = {
    classMethod<"ZelkaCBColorWithHexaCode:", UIColor(std::int32_t), &colorWithPackedCode>(),
    classMethod<"ZelkaCBColorWithRed:green:blue:alpha:", UIColor(NSInteger, NSInteger, NSInteger, CGFloat),
                &colorWithComponents>(),
    classMethod<"ZelkaCBColorWithHexaCode:alpha:", UIColor(NSString, CGFloat), &colorWithHexaCode>(),
};

constexpr MethodRow kImageMethods[] = {
    receiverMethod<"imageWithRoundedCornersRadius:", &imageWithRoundedCornersRadius>(),
};

// The association's key: the runtime goes by the address and reads no text.
constexpr char kContactIDKey[] = "ZelkaCB_ContactID";

// A number kept beside any object; 0 until one is set.
NSInteger contactID(NSObject object) { return object.associatedObject<NSNumber>(kContactIDKey).integerValue(); }

void setContactID(NSObject object, NSInteger value) {
    object.setAssociatedObject(kContactIDKey, NSNumber::ofInteger(value));
}

constexpr MethodRow kObjectMethods[] = {
    receiverMethod<"ZelkaCB_contactID", &contactID>(),
    receiverMethod<"setZelkaCB_contactID:", &setContactID>(),
};

// Its accessors are the methods above; no instance variable stands behind it.
constexpr PropertyRow kObjectProperties[] = {dynamicProperty<NSInteger>("ZelkaCB_contactID")};

constexpr MethodRow kTableViewCellMethods[] = {
    receiverMethod<"parentTableView", &parentTableView>(),
};

}  // namespace

void extendPlatformClasses() {
    addMethods(metaclassOf(optionalClass<UIColor>()), kColorClassMethods);
    addMethods(optionalClass<UIImage>(), kImageMethods);
    addMethods(optionalClass<NSObject>(), kObjectMethods);
    addProperties(optionalClass<NSObject>(), kObjectProperties);
    addMethods(optionalClass<UITableViewCell>(), kTableViewCellMethods);
}

}  // namespace zelka

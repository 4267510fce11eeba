// Handles of the Preferences framework's classes, as far as the page speaks to them. Results are unowned (+0); main
// thread.
#pragma once

#include "src/platform/class_builder.h"
#include "src/platform/foundation/NSArray.h"
#include "src/platform/owned.h"
#include "src/platform/uikit/UITableView.h"

// What one row or one group's beginning is made of: an item of the page's list.
struct PSSpecifier : NSObject {
    // What the list's item has under the key, or what was set; nil when there is neither.
    template <zelka::ObjectHandle T = NSObject>
    T property(NSString key) const {
        return zelka::send<T, "propertyForKey:">(*this, key);
    }
    void setProperty(NSObject value, NSString key) const {
        zelka::send<void, "setProperty:forKey:">(*this, value, key);
    }
    // The row's label in the user's language.
    NSString name() const { return zelka::send<NSString, "name">(*this); }
};

// A list of settings. The page's own class is a subclass.
struct PSListController : NSObject {
    // The rows, in their order; the page's class makes them when they are first asked for.
    NSArray specifiers() const { return zelka::send<NSArray, "specifiers">(*this); }
    // The items of the bundle's list of that name as specifiers with that target, their texts translated by the table
    // of the same name.
    NSArray specifiersFromList(NSString name, NSObject target) const {
        return zelka::send<NSArray, "loadSpecifiersFromPlistName:target:">(*this, name, target);
    }
    // Makes the row's cell show the specifier as it is now, if it is on screen.
    void reload(PSSpecifier specifier) const { zelka::send<void, "reloadSpecifier:">(*this, specifier); }

    // The framework's variable for the rows, which a subclass fills. It is released with the controller.
    NSArray storedSpecifiers() const { return instanceVariable<NSArray>("_specifiers"); }
    void storeSpecifiers(zelka::Owned<NSArray> specifiers) const {
        auto offset = zelka::variableOffset(zelka::platformClass<PSListController>(), "_specifiers");
        *reinterpret_cast<id*>(reinterpret_cast<char*>(object) + offset) = specifiers.leak().object;
    }
};

// A row of such a list. The preview's class is a subclass.
struct PSTableCell : UITableViewCell {};

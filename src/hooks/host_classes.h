// Handles of the host's classes: CallBar's and those of the system's contacts interface. What a handle declares is what
// the host's class is known to have; a selector that some versions lack has its own `has...`. Results are unowned (+0).
// All of it is the main thread's.
#pragma once

#include "src/platform/foundation.h"
#include "src/platform/uikit.h"

namespace zelka {

// A person of the contacts interface of system 7 and later.
struct ContactsUIPerson : NSObject {
    std::int32_t recordID() const { return send<std::int32_t, "recordID">(*this); }
    NSArray linkedPeople() const { return send<NSArray, "linkedPeople">(*this); }
    // The person among the linked ones whose photo is shown for all of them.
    ContactsUIPerson preferredPersonForPhoto() const {
        return send<ContactsUIPerson, "preferredPersonForPhoto">(*this);
    }
    // Encoded bytes; nil or empty without a photo.
    NSData preferredPhotoThumbnail() const { return send<NSData, "preferredPhotoThumbnail">(*this); }
};

// A row of the system's Contacts list.
struct ABMemberCell : UITableViewCell {
    ContactsUIPerson person() const { return send<ContactsUIPerson, "person">(*this); }
    bool hasContactNameView() const { return respondsTo(*this, selector<"contactNameView">()); }
    UIView contactNameView() const { return send<UIView, "contactNameView">(*this); }
};

// The system's generator of monogram pictures.
struct ABMonogrammer : NSObject {
    UIFont font() const { return send<UIFont, "font">(*this); }
};

// One of CallBar's buttons that switch between its lists.
struct CallBarToggle : NSObject {
    bool isSelected() const { return send<bool, "isSelected">(*this); }
};

// CallBar's main controller.
struct CallBarControllerModern : UIResponder {
    // Both as the platform performs selectors whose methods may return anything: the result is ignored.
    void cleanupFavoritesButtons() const { perform(selector<"cleanupFavoritesButtons">()); }
    void resetFavorites() const { perform(selector<"resetFavorites">()); }

  private:
    void perform(SEL command) const { send<NSObject, "performSelector:withObject:">(*this, command, NSObject{}); }
};

// One call of the Recents list. CallBar's versions name its contact in different ways.
struct CallBarCall : NSObject {
    bool hasUid() const { return respondsTo(*this, selector<"uid">()); }
    NSInteger uid() const { return send<NSInteger, "uid">(*this); }
    bool hasAddressBookRecordId() const { return respondsTo(*this, selector<"addressBookRecordId">()); }
    NSNumber addressBookRecordId() const { return send<NSNumber, "addressBookRecordId">(*this); }
    bool hasCallerName() const { return respondsTo(*this, selector<"callerName">()); }
    NSString callerName() const { return send<NSString, "callerName">(*this); }
};

// A row's worth of the Recents list: the calls of one caller.
struct CallBarEntry : NSDictionary {
    // The caller's phone number or e-mail address.
    NSString address() const { return objectFor<NSString>(literal<"address">()); }
    CallBarCall firstCall() const { return objectFor<NSArray>(literal<"calls">()).first<CallBarCall>(); }
};

// The controller of the Recents list.
struct CallBarABViewController : UIResponder {
    UITableView tableView() const { return send<UITableView, "performSelector:">(*this, selector<"tableView">()); }

    // The entry shown in that row; nil when the list has fewer.
    CallBarEntry entryInRow(NSInteger row) const {
        const char* list = flag("onlyMissed") ? "_missedEntries" : "_allEntries";
        NSArray entries{{static_cast<id>(variable(list))}};
        auto index = static_cast<NSUInteger>(row);
        return entries.count() > index ? entries.at<CallBarEntry>(index) : CallBarEntry{};
    }

  private:
    // The value of an instance variable, for which the host has no accessor; zero where it is missing.
    void* variable(const char* name) const {
        void* value = nullptr;
        object_getInstanceVariable(object, name, &value);
        return value;
    }
    bool flag(const char* name) const {
        // The runtime copies a whole pointer's worth, of which a BOOL is the first byte.
        void* value = variable(name);
        return *reinterpret_cast<const unsigned char*>(&value) != 0;
    }
};

// A row of the Recents list.
struct CallBarTableViewTransparentCell : UITableViewCell {
    // The method that the library adds to the class.
    void initialize() const { send<void, "initialize">(*this); }
};

}  // namespace zelka

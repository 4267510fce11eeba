// Handles of the host's classes: CallBar's and those of the system's contacts interface. What a handle declares is what
// the host's class is known to have; for a selector that some versions lack, `has...` tests it. Results are unowned
// (+0). All of it is the main thread's.
#pragma once

#include "src/platform/foundation/NSArray.h"
#include "src/platform/foundation/NSDictionary.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/foundation/NSValue.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UITableView.h"
#include "src/platform/uikit/UIView.h"

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
    bool hasContactNameView() const { return respondsTo(selector<"contactNameView">()); }
    UIView contactNameView() const { return send<UIView, "contactNameView">(*this); }
};

// The system's generator of monogram pictures.
struct ABMonogrammer : NSObject {
    UIFont font() const { return send<UIFont, "font">(*this); }
};

// CallBar's main controller.
struct CallBarControllerModern : UIResponder {
    // Both by performing the selector: the host's methods may return anything.
    void cleanupFavoritesButtons() const { performSelector(selector<"cleanupFavoritesButtons">(), NSObject{}); }
    void resetFavorites() const { performSelector(selector<"resetFavorites">(), NSObject{}); }
};

// One call of the Recents list. CallBar's versions name its contact in different ways.
struct CallBarCall : NSObject {
    bool hasUid() const { return respondsTo(selector<"uid">()); }
    NSInteger uid() const { return send<NSInteger, "uid">(*this); }
    bool hasAddressBookRecordId() const { return respondsTo(selector<"addressBookRecordId">()); }
    NSNumber addressBookRecordId() const { return send<NSNumber, "addressBookRecordId">(*this); }
    bool hasCallerName() const { return respondsTo(selector<"callerName">()); }
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
    UITableView tableView() const { return performSelector<UITableView>(selector<"tableView">()); }

    // The entry shown in that row; nil when the list has fewer. The host has no accessors for its lists.
    CallBarEntry entryInRow(NSInteger row) const {
        const char* list = instanceVariable<bool>("onlyMissed") ? "_missedEntries" : "_allEntries";
        auto entries = instanceVariable<NSArray>(list);
        auto index = static_cast<NSUInteger>(row);
        return entries.count() > index ? entries.at<CallBarEntry>(index) : CallBarEntry{};
    }
};

// A row of the Recents list.
struct CallBarTableViewTransparentCell : UITableViewCell {
    // The method that the library adds to the class.
    void initialize() const { send<void, "initialize">(*this); }
};

}  // namespace zelka

// The phone that is measured: an address book of photos, contacts without one and linked ones, in a root of its own.
#pragma once

#import <Foundation/Foundation.h>

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/frameworks/uikit/uikit.h"
#import "simulator/hosts/callbar/CallBarABViewController.h"
#import "simulator/hosts/callbar/CallBarScreen.h"

// What the benchmarks ask the library for.
@protocol ZelkaCBUtils <NSObject>
+ (UIImage*)getContactImageInCache:(int)contact;
+ (UIImage*)getContactImageOnly:(int)contact monogramText:(NSString*)text newImage:(BOOL)newImage;
+ (UIImage*)monogramImage:(NSString*)text;
+ (void)clearImageCache;
+ (void)prepareImageCache;
@end

@protocol ZLKCBSettings <NSObject>
+ (id)sharedSettings;
- (void)setIsMonogramEnabled:(BOOL)on;
- (void)setIsRoundedPicsEnabled:(BOOL)on;
@end

#define Utils ((Class<ZelkaCBUtils>)objc_getClass("ZelkaCBUtils"))
#define Settings ((id<ZLKCBSettings>)[(Class<ZLKCBSettings>)objc_getClass("ZLKCBSettings") sharedSettings])

namespace bench {

// Contacts 1 to kPhotos have a photo; then come kPlain without one, and kLinked without one that are each linked with a
// contact that has one.
constexpr int kPhotos = 10000;
constexpr int kPlain = 500;
constexpr int kLinked = 500;

// Makes the root with the library in it. A failure ends the process with a message.
void makePhone(const std::filesystem::path& root);

// Becomes SpringBoard of that root, without the library so far.
void boot(const std::filesystem::path& root);

// Loads the library as the phone's injector does; how long that took, in nanoseconds.
double inject();

// A temporary directory that goes with this object.
class TemporaryRoot {
  public:
    TemporaryRoot();
    ~TemporaryRoot();
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

// The host's methods as they were before the library came, and as they are now.
struct Method {
    const char* className;
    SEL selector;
    IMP host = nullptr;
    IMP hooked = nullptr;
};

// Stands before the host's own Recents methods, so that they can be left out.
struct SilentHost {
    bool isSilent = false;
    id cell = nil;  // what a silent host answers as every row's cell; unowned
    IMP row = nullptr;
    IMP layout = nullptr;
};
extern SilentHost theHost;

struct HostMethods {
    Method recentsRow { "CallBarABViewController", @selector(tableView:cellForRowAtIndexPath:) };
    Method recentsLayout { "CallBarTableViewTransparentCell", @selector(layoutSubviews) };
    Method contactsRow { "ABMembersDataSource", @selector(tableView:cellForRowAtIndexPath:) };
    Method contactsLayout { "ABMemberCell", @selector(layoutSubviews) };
    Method favorite { "ABMonogrammer", @selector(monogramForPerson:isPersonImage:) };

    void readHost();
    void readHooked();
};

// The screens, once the library is loaded and the application has started, all with cached pictures.
struct Screens {
    UITableView* table = nil;        // gives the same cell whenever one is asked for
    NSIndexPath* recentsPath = nil;  // a call that names its contact and its caller
    UITableViewCell* recentsCell = nil;
    UITableView* membersTable = nil;
    NSIndexPath* membersPath = nil;
    UITableViewCell* membersCell = nil;
    id membersSource = nil;
};

Screens makeScreens();

}  // namespace bench

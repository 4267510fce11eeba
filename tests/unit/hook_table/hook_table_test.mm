#include <gmock/gmock.h>

#include "simulator/runtime/library_loader.h"
#include "tests/support/encodings.h"
#include "tests/support/extension.h"
#include "tests/support/library_path.h"

// In this process, all of the host's classes are there: CallBar's from the stand-in's host programs, and the system
// shell's application.
@interface SpringBoard : NSObject
- (void)applicationDidFinishLaunching:(id)application;
@end

@implementation SpringBoard
- (void)applicationDidFinishLaunching:(id)application {
    [application self];
}
@end

namespace {

enum class Kind { hooked, added };

struct Row {
    const char* className;
    const char* selector;
    Kind kind;
    const char* encoding = nullptr;  // of an added method
};

const Row kRows[] = {
    {"SpringBoard", "applicationDidFinishLaunching:", Kind::hooked},
    {"ABMonogrammer", "_copyMonogramWithInitials:", Kind::hooked},
    {"ABMonogrammer", "_copyMonogramWithImageData:", Kind::hooked},
    {"ABMonogrammer", "monogramForPerson:isPersonImage:", Kind::hooked},
    {"CallBarControllerModern", "viewDidLoad", Kind::hooked},
    {"CallBarControllerModern", "toggleFavorites:", Kind::hooked},
    {"CallBarControllerModern", "toggleRecents:", Kind::hooked},
    {"CallBarControllerModern", "toggleContacts:", Kind::hooked},
    {"CallBarControllerModern", "monogrammer", Kind::hooked},
    {"CallBarControllerModern", "zelkaCBSettingsChanged:", Kind::added, "v@:@@"},
    {"CallBarFavoritesViewController", "viewDidAppear:", Kind::hooked},
    {"CallBarABViewController", "viewDidLoad", Kind::hooked},
    {"CallBarABViewController", "viewDidAppear:", Kind::hooked},
    {"CallBarABViewController", "zelkaCBSettingsChanged:", Kind::added, "v@:@@"},
    {"CallBarABViewController", "tableView:cellForRowAtIndexPath:", Kind::hooked},
    {"CallBarABViewController", "dealloc", Kind::hooked},
    {"CallBarTableViewTransparentCell", "initWithStyle:reuseIdentifier:", Kind::hooked},
    {"CallBarTableViewTransparentCell", "initialize", Kind::added, "v@:"},
    {"CallBarTableViewTransparentCell", "layoutSubviews", Kind::hooked},
    {"ABMembersViewController", "viewDidAppear:", Kind::hooked},
    {"ABMemberCell",
     "_drawText:withColor:shadowColor:shadowOffset:atPoint:forWidth:withFont:lineBreakMode:", Kind::hooked},
    {"ABMemberCell", "layoutSubviews", Kind::hooked},
    {"ABMembersDataSource", "tableView:cellForRowAtIndexPath:", Kind::hooked},
    {"ABMembersFilteredDataSource", "tableView:cellForRowAtIndexPath:", Kind::hooked},
};

IMP implementationOf(const Row& row) {
    Method method = class_getInstanceMethod(objc_getClass(row.className), sel_registerName(row.selector));
    return method != nullptr ? method_getImplementation(method) : nullptr;
}

bool isInLibrary(IMP implementation) {
    return phone::libraryOf(reinterpret_cast<void*>(implementation)) == test::libraryPath();
}

class HookTable : public test::ExtensionTest {};

TEST_F(HookTable, ReplacesOrAddsEveryRowsMethod) {
    for (const Row& row : kRows) EXPECT_FALSE(isInLibrary(implementationOf(row))) << row.className << row.selector;
    boot();
    for (const Row& row : kRows) EXPECT_TRUE(isInLibrary(implementationOf(row))) << row.className << row.selector;
}

TEST_F(HookTable, IsInstalledInEveryProcess) {
    boot("com.apple.mobilephone");
    for (const Row& row : kRows) EXPECT_TRUE(isInLibrary(implementationOf(row))) << row.className << row.selector;
}

TEST_F(HookTable, HookedMethodsKeepTheirEncodingAndAddedOnesGetTheirs) {
    std::vector<std::string> before;
    auto encodingOf = [](const Row& row) {
        Method method = class_getInstanceMethod(objc_getClass(row.className), sel_registerName(row.selector));
        return std::string(method != nullptr ? method_getTypeEncoding(method) : "");
    };
    for (const Row& row : kRows) before.push_back(encodingOf(row));
    boot();
    size_t index = 0;
    for (const Row& row : kRows) {
        EXPECT_EQ(encodingOf(row), row.kind == Kind::added ? row.encoding : before[index])
            << row.className << row.selector;
        ++index;
    }
}

TEST_F(HookTable, LeavesTheSuperclassesAlone) {
    const IMP layout = class_getMethodImplementation([UITableViewCell class], @selector(layoutSubviews));
    const IMP appear = class_getMethodImplementation([UIViewController class], @selector(viewDidAppear:));
    const IMP dealloc = class_getMethodImplementation([UIViewController class], sel_registerName("dealloc"));
    boot();
    EXPECT_EQ(class_getMethodImplementation([UITableViewCell class], @selector(layoutSubviews)), layout);
    EXPECT_EQ(class_getMethodImplementation([UIViewController class], @selector(viewDidAppear:)), appear);
    EXPECT_EQ(class_getMethodImplementation([UIViewController class], sel_registerName("dealloc")), dealloc);
}

}  // namespace

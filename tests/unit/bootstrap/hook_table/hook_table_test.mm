#include <dlfcn.h>
#include <gmock/gmock.h>

#include <array>
#include <utility>

#include "simulator/runtime/process/library_loader.h"
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

// An argument of every kind that a replacement asks something of: a button, an index path.
@interface AnyArgument : NSObject
- (BOOL)isSelected;
- (NSInteger)row;
@end

struct Call {
    size_t row;  // whose method was called
    id receiver;
    SEL command;
    id first;
};
static std::vector<Call> noted;

@implementation AnyArgument
- (BOOL)isSelected {
    return NO;
}
- (NSInteger)row {
    return 0;
}
@end

// The classes that the library asks for while it is loaded, in order.
static std::vector<std::string> lookedUp;
static bool loading = false;

// Ahead of the runtime's own by definition order.
extern "C" __attribute__((visibility("default"))) Class objc_getClass(const char* name) {
    static const auto before = reinterpret_cast<decltype(&objc_getClass)>(dlsym(RTLD_NEXT, "objc_getClass"));
    if (loading && phone::libraryOf(__builtin_return_address(0)) == test::libraryPath()) lookedUp.push_back(name);
    return before(name);
}

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

// The host's method of a row, whatever its signature: notes whose it is and who was asked for what with which first
// argument, and returns nil. The sanitizer would have a function called as one of its own type alone.
template <size_t row>
__attribute__((no_sanitize("function"))) id notedMethod(id receiver, SEL command, id first) {
    noted.push_back({row, receiver, command, first});
    return nil;
}

using NotedMethod = id (*)(id, SEL, id);

template <size_t... rows>
constexpr std::array<NotedMethod, sizeof...(rows)> notedMethods(std::index_sequence<rows...>) {
    return {&notedMethod<rows>...};
}

constexpr auto kNotedMethods = notedMethods(std::make_index_sequence<std::size(kRows)>());

IMP notedMethodOf(const Row& row) {
    return reinterpret_cast<IMP>(kNotedMethods[static_cast<size_t>(&row - std::begin(kRows))]);
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

TEST_F(HookTable, IsInstalledInAProcessWithoutIdentifierToo) {
    boot("");
    ASSERT_EQ([[NSBundle mainBundle] bundleIdentifier], nil);
    for (const Row& row : kRows) EXPECT_TRUE(isInLibrary(implementationOf(row))) << row.className << row.selector;
}

TEST_F(HookTable, LooksEachClassUpOnceAndInOrder) {
    std::vector<std::string> wanted;
    for (const Row& row : kRows)
        if (wanted.empty() || wanted.back() != row.className) wanted.push_back(row.className);
    ASSERT_EQ(wanted.size(), 10u);
    bootPhone("com.apple.springboard");
    loading = true;
    loadExtension();
    loading = false;
    // The library's own classes and the platform's, which it looks up meanwhile, are not the host's.
    std::erase_if(lookedUp, [&](const std::string& name) { return !std::ranges::count(wanted, name); });
    EXPECT_EQ(lookedUp, wanted);
}

// A method of the class's own is swapped, an inherited one overridden.
void takeOver(const Row& row) {
    Class cls = objc_getClass(row.className);
    const SEL selector = sel_registerName(row.selector);
    const IMP code = notedMethodOf(row);
    Method method = class_getInstanceMethod(cls, selector);
    if (!class_addMethod(cls, selector, code, method_getTypeEncoding(method))) method_setImplementation(method, code);
}

TEST_F(HookTable, EveryReplacementCallsTheHostOnceWithWhatItWasGiven) {
    bootPhone("com.apple.springboard");
    for (const Row& row : kRows)
        if (row.kind == Kind::hooked) takeOver(row);
    loadExtension();
    AnyArgument* argument = [[[AnyArgument alloc] init] autorelease];
    for (const Row& row : kRows) {
        if (row.kind == Kind::added) continue;
        SCOPED_TRACE(std::string(row.className) + " " + row.selector);
        // Bare: its own initialiser may be one that was taken over.
        id receiver = class_createInstance(objc_getClass(row.className), 0);
        const SEL command = sel_registerName(row.selector);
        const std::string_view name = row.selector;
        id first = name == "viewDidAppear:" ? (id)YES : argument;
        noted.clear();
        [receiver performSelector:command withObject:first withObject:argument];
        ASSERT_EQ(noted.size(), 1u);
        // Of two methods that shared a slot, one would be called in the other's place.
        EXPECT_EQ(kRows[noted.front().row].className + std::string(" ") + kRows[noted.front().row].selector,
                  row.className + std::string(" ") + row.selector);
        EXPECT_EQ(noted.front().receiver, receiver);
        EXPECT_STREQ(sel_getName(noted.front().command), row.selector);
        if (name.ends_with(':')) EXPECT_EQ(noted.front().first, first);
    }
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

TEST_F(HookTable, AnAddedMethodLeavesTheHostsOwnInPlace) {
    bootPhone("com.apple.springboard");
    for (const Row& row : kRows) {
        if (row.kind == Kind::hooked) continue;
        ASSERT_TRUE(
            class_addMethod(objc_getClass(row.className), sel_registerName(row.selector), notedMethodOf(row), "@@:@"));
    }
    loadExtension();
    for (const Row& row : kRows) {
        if (row.kind == Kind::hooked) continue;
        SCOPED_TRACE(std::string(row.className) + " " + row.selector);
        EXPECT_EQ(implementationOf(row), notedMethodOf(row));
        Method method = class_getInstanceMethod(objc_getClass(row.className), sel_registerName(row.selector));
        EXPECT_STREQ(method_getTypeEncoding(method), "@@:@");
    }
}

TEST_F(HookTable, AnAddedMethodOverridesAnInheritedOne) {
    bootPhone("com.apple.springboard");
    std::vector<IMP> inherited;
    for (const Row& row : kRows) {
        if (row.kind == Kind::hooked) continue;
        // Two of the classes have one superclass, which takes the first row's method.
        Class superclass = class_getSuperclass(objc_getClass(row.className));
        class_addMethod(superclass, sel_registerName(row.selector), notedMethodOf(row), "@@:@");
        inherited.push_back(class_getMethodImplementation(superclass, sel_registerName(row.selector)));
    }
    loadExtension();
    size_t index = 0;
    for (const Row& row : kRows) {
        if (row.kind == Kind::hooked) continue;
        SCOPED_TRACE(std::string(row.className) + " " + row.selector);
        EXPECT_TRUE(isInLibrary(implementationOf(row)));
        Class superclass = class_getSuperclass(objc_getClass(row.className));
        EXPECT_EQ(class_getMethodImplementation(superclass, sel_registerName(row.selector)), inherited[index++]);
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

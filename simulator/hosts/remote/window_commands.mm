#import "simulator/hosts/remote/window_commands.h"

#import "simulator/frameworks/uikit/uikit.h"
#import "simulator/hosts/remote/screen_watch.h"
#import "simulator/hosts/remote/screen_window.h"
#include "simulator/runtime/process/pending_work.h"
#include "simulator/runtime/process/process.h"

// Declared by Foundation in debug builds alone, but always there.
extern "C" int GSDebugAllocationCount(Class cls);  // NOLINT(readability-redundant-declaration)

namespace hosts {

CommandResult done(NSDictionary* values) { return Reply{values, false}; }

// A text that a command held may be no Unicode.
CommandResult failed(NSString* error) {
    NSData* utf8 = [error dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    return phone::failure(std::string(static_cast<const char*>([utf8 bytes]), [utf8 length]));
}

NSString* textOf(NSDictionary* command, NSString* key) {
    id value = [command objectForKey:key];
    return [value isKindOfClass:[NSString class]] ? value : nil;
}

NSNumber* numberOf(NSDictionary* command, NSString* key) {
    id value = [command objectForKey:key];
    return [value isKindOfClass:[NSNumber class]] ? value : nil;
}

namespace {

CommandResult settle(NSDictionary* command, const Libraries&) {
    const double timeout = [numberOf(command, @"timeout") doubleValue];
    if (timeout <= 0) return failed(@"settle needs a \"timeout\" above 0, in seconds");
    if (!phone::settle(timeout)) {
        return failed([NSString
            stringWithFormat:@"still waiting after %g s for %ld pieces of queued work", timeout, phone::pendingWork()]);
    }
    [screenWindow() layoutIfNeeded];
    return done(@{});
}

CommandResult shot(NSDictionary* command, const Libraries&) {
    NSString* out = textOf(command, @"out");
    if (![out isAbsolutePath]) return failed(@"shot needs \"out\", the absolute path of the picture to write");
    if (screenWindow() == nil) return failed(@"there is no window to take a picture of");
    NSError* problem = nil;
    if (!UIWriteSnapshotOfView(screenWindow(), out, &problem)) return failed([problem localizedDescription]);
    const CGSize size = [screenWindow() bounds].size;
    const CGFloat scale = [[UIScreen mainScreen] scale];
    return done(@{
        @"width" : [NSNumber numberWithDouble:size.width * scale],
        @"height" : [NSNumber numberWithDouble:size.height * scale]
    });
}

CommandResult watch(NSDictionary* command, const Libraries&) {
    NSString* out = textOf(command, @"out");
    const double interval = [numberOf(command, @"interval") doubleValue];
    if (![out isAbsolutePath])
        return failed(@"watch needs \"out\", the absolute path of the picture to keep up to date");
    if (interval <= 0) return failed(@"watch needs an \"interval\" above 0, in seconds");
    return screenWatch().start(out, interval).map([] {
        return Reply { @{}, false };
    });
}

CommandResult info(NSDictionary*, const Libraries& libraries) {
    NSMutableArray* paths = [NSMutableArray array];
    for (const std::string& path : libraries) [paths addObject:[NSString stringWithUTF8String:path.c_str()]];
    NSString* identifier = [[NSBundle mainBundle] bundleIdentifier];
    return done(@{
        @"bundleIdentifier" : identifier != nil ? (id)identifier : (id)[NSNull null],
        @"libraries" : paths,
        @"windows" : [NSNumber numberWithUnsignedInteger:[[[UIApplication sharedApplication] windows] count]],
        @"pendingWork" : [NSNumber numberWithLong:phone::pendingWork()]
    });
}

CommandResult objects(NSDictionary* command, const Libraries&) {
    NSMutableDictionary* counts = [NSMutableDictionary dictionary];
    for (NSString* name in [command objectForKey:@"classes"]) {
        const int count = GSDebugAllocationCount(NSClassFromString(name));
        [counts setObject:[NSNumber numberWithInt:count] forKey:name];
    }
    return done(@{@"counts" : counts});
}

CommandResult quit(NSDictionary*, const Libraries&) {
    return Reply { @{}, true };
}

}  // namespace

Handlers withWindowHandlers(const Handlers& own) {
    Handlers all = own;
    all.insert(
        {{"settle", settle}, {"shot", shot}, {"watch", watch}, {"info", info}, {"objects", objects}, {"quit", quit}});
    return all;
}

CommandResult carryOutBy(const Handlers& handlers, NSDictionary* command, const Libraries& injectedLibraries) {
    NSString* name = textOf(command, @"do");
    if (name == nil) return failed(@"a command names what to do: {\"do\": \"info\"}");
    const auto handler = handlers.find([name UTF8String]);
    if (handler == handlers.end()) return failed([NSString stringWithFormat:@"no command \"%@\"", name]);
    @try {
        return handler->second(command, injectedLibraries);
    } @catch (NSException* exception) {
        return failed([NSString stringWithFormat:@"%@: %@", [exception name], [exception reason]]);
    }
}

}  // namespace hosts

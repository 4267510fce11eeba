#import "simulator/hosts/remote/remote_control.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#import "simulator/hosts/remote/commands.h"
#import "simulator/hosts/remote/screen_watch.h"

namespace {

bool writeAll(int descriptor, const char* bytes, size_t length) {
    while (length > 0) {
        const ssize_t count = ::write(descriptor, bytes, length);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytes += count;
        length -= static_cast<size_t>(count);
    }
    return true;
}

// JSON texts are UTF-8, which knows no lone surrogates; names from the wild do.
NSString* wellFormed(NSString* text) {
    NSMutableString* result = nil;
    const NSUInteger length = [text length];
    for (NSUInteger i = 0; i < length; ++i) {
        const unichar c = [text characterAtIndex:i];
        if (c < 0xD800 || c > 0xDFFF) continue;
        const unichar next = i + 1 < length ? [text characterAtIndex:i + 1] : 0;
        if (c < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
            ++i;
            continue;
        }
        if (result == nil) result = [[text mutableCopy] autorelease];
        [result replaceCharactersInRange:NSMakeRange(i, 1) withString:@"\uFFFD"];
    }
    return result != nil ? result : text;
}

id wellFormedJson(id value) {
    if ([value isKindOfClass:[NSString class]]) return wellFormed(value);
    if ([value isKindOfClass:[NSArray class]]) {
        NSMutableArray* result = [NSMutableArray array];
        for (id item in value) [result addObject:wellFormedJson(item)];
        return result;
    }
    if ([value isKindOfClass:[NSDictionary class]]) {
        NSMutableDictionary* result = [NSMutableDictionary dictionary];
        for (NSString* key in value) [result setObject:wellFormedJson([value objectForKey:key]) forKey:key];
        return result;
    }
    return value;
}

}  // namespace

// Reads lines on a thread of its own and carries them out on the main thread.
@interface ZSRemoteServer : NSObject {
  @public
    int _input;
    int _output;
    BOOL _inputEnded;
    BOOL _quit;
    NSMutableArray* _waiting;
    const std::vector<std::string>* _injected;
}
- (void)readLines;
@end

@implementation ZSRemoteServer

- (void)dealloc {
    [_waiting release];
    [super dealloc];
}

- (void)readLines {
    @autoreleasepool {
        NSMutableData* unread = [NSMutableData data];
        while ([self readInto:unread]) [self takeLinesOf:unread];
        [self performSelectorOnMainThread:@selector(inputEnded) withObject:nil waitUntilDone:NO];
    }
}

// NO at the end of the input.
- (BOOL)readInto:(NSMutableData*)unread {
    char buffer[65536];
    ssize_t count = 0;
    do {
        count = ::read(_input, buffer, sizeof buffer);
    } while (count < 0 && errno == EINTR);
    if (count > 0) [unread appendBytes:buffer length:(NSUInteger)count];
    return count > 0;
}

- (void)takeLinesOf:(NSMutableData*)unread {
    @autoreleasepool {
        const char* bytes = (const char*)[unread bytes];
        NSUInteger taken = 0;
        for (;;) {
            const void* end = memchr(bytes + taken, '\n', [unread length] - taken);
            if (end == nullptr) break;
            const NSUInteger length = (NSUInteger)((const char*)end - bytes) - taken;
            NSData* line = [NSData dataWithBytes:bytes + taken length:length];
            taken += length + 1;
            [self performSelectorOnMainThread:@selector(takeLine:) withObject:line waitUntilDone:NO];
        }
        [unread replaceBytesInRange:NSMakeRange(0, taken) withBytes:nullptr length:0];
    }
}

- (void)inputEnded {
    _inputEnded = YES;
}

- (void)takeLine:(NSData*)line {
    [_waiting addObject:line];
}

// Between the run loop's turns: within one, what came together with the command's line would have to wait for the
// command, and a command that waits for it would wait in vain.
- (void)carryOutWaitingLines {
    while ([_waiting count] > 0 && !_quit) {
        @autoreleasepool {
            NSData* next = [[[_waiting objectAtIndex:0] retain] autorelease];
            [_waiting removeObjectAtIndex:0];
            [self carryOutLine:next];
        }
    }
    _quit = _quit || _inputEnded;
}

- (void)carryOutLine:(NSData*)line {
    NSError* problem = nil;
    NSDictionary* command = [NSJSONSerialization JSONObjectWithData:line options:0 error:&problem];
    NSMutableDictionary* values = [NSMutableDictionary dictionary];
    hosts::CommandResult reply = phone::failure("a command is one JSON object on one line, such as {\"do\": \"info\"}");
    if ([command isKindOfClass:[NSDictionary class]]) {
        reply = hosts::carryOut(command, *_injected);
        if ([command objectForKey:@"id"] != nil) [values setObject:[command objectForKey:@"id"] forKey:@"id"];
    }
    if (reply)
        [values addEntriesFromDictionary:reply->values];
    else
        [values setObject:[NSString stringWithUTF8String:reply.error().message.c_str()] forKey:@"error"];
    _quit = _quit || (reply && reply->quit);
    [self send:values];
}

- (void)send:(NSDictionary*)values {
    NSError* problem = nil;
    NSMutableData* bytes = [[[NSJSONSerialization dataWithJSONObject:wellFormedJson(values) options:0
                                                               error:&problem] mutableCopy] autorelease];
    [bytes appendBytes:"\n" length:1];
    if (bytes == nil || !writeAll(_output, (const char*)[bytes bytes], [bytes length])) _quit = YES;
}

@end

namespace hosts {

void RemoteControl::takeStandardStreams() {
    input_ = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    output_ = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    ::close(nothing);
}

void RemoteControl::serve() {
    ZSRemoteServer* server = [[ZSRemoteServer alloc] init];
    server->_input = input_;
    server->_output = output_;
    server->_waiting = [[NSMutableArray alloc] init];
    server->_injected = &injected;
    @autoreleasepool {
        [NSThread detachNewThreadSelector:@selector(readLines) toTarget:server withObject:nil];
        [server send:@{@"ready" : [NSNumber numberWithBool:YES]}];
    }
    while (!server->_quit) {
        @autoreleasepool {
            [[NSRunLoop mainRunLoop] runMode:NSDefaultRunLoopMode beforeDate:screenWatch().endOfNextTurn()];
            [server carryOutWaitingLines];
            if (NSDictionary* event = screenWatch().turnEnded()) [server send:event];
        }
    }
}

}  // namespace hosts

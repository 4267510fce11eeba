#include "simulator/tool/settings_file.h"

#import <Foundation/Foundation.h>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include "simulator/runtime/file_system/descriptor.h"
#include "simulator/runtime/file_system/phone_root.h"
#import "simulator/runtime/file_system/property_list.h"

namespace tool {
namespace {

constexpr const char* kFile = "/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist";

// Keeps others who change settings away from a folder as long as it is open: who read the file before another's change
// would write that back to what it was.
phone::Result<phone::Descriptor> lockFolder(const std::filesystem::path& folder) {
    phone::Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen() && flock(opened.get(), LOCK_EX) == 0) return opened;
    return phone::failure(folder.string() + ": " + std::generic_category().message(errno));
}

// nil when something is there but no dictionary in it.
NSMutableDictionary* readDictionary(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return [NSMutableDictionary dictionary];
    if (!std::filesystem::is_regular_file(file, error)) return nil;
    NSData* data = [NSData dataWithContentsOfFile:[NSString stringWithUTF8String:file.c_str()]];
    id list = phone::readPropertyList(data);
    return [list isKindOfClass:[NSDictionary class]] ? [NSMutableDictionary dictionaryWithDictionary:list] : nil;
}

phone::Status replaceFile(const std::string& file, NSData* contents) {
    std::string part = file + ".part";
    std::ofstream stream(part, std::ios::binary | std::ios::trunc);
    stream.write(static_cast<const char*>([contents bytes]), static_cast<std::streamsize>([contents length]));
    stream.close();
    if (!stream) return phone::failure(part + ": cannot be written");
    std::error_code error;
    std::filesystem::rename(part, file, error);
    if (!error) return {};
    std::string problem = error.message();
    std::filesystem::remove(part, error);
    return phone::failure(file + ": " + problem);
}

// Reads, changes and writes.
phone::Status changeFile(const std::string& file, const std::string& key, bool on) {
    @autoreleasepool {
        NSMutableDictionary* settings = readDictionary(file);
        if (!settings) return phone::failure(file + ": is no property list with settings; remove it to start afresh");
        [settings setObject:[NSNumber numberWithBool:on] forKey:[NSString stringWithUTF8String:key.c_str()]];
        NSError* error = nil;
        NSData* contents = [NSPropertyListSerialization dataWithPropertyList:settings
                                                                      format:NSPropertyListXMLFormat_v1_0
                                                                     options:0
                                                                       error:&error];
        if (!contents) return phone::failure(file + ": " + [[error localizedDescription] UTF8String]);
        return replaceFile(file, contents);
    }
}

}  // namespace

phone::Status setSwitch(const std::filesystem::path& root, const std::string& key, bool on) {
    const std::filesystem::path file = phone::hostPath(kFile, root);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    return lockFolder(file.parent_path()).and_then([&](const phone::Descriptor&) { return changeFile(file, key, on); });
}

phone::Result<std::optional<bool>> readSwitch(const std::filesystem::path& root, const std::string& key) {
    @autoreleasepool {
        const std::string file = phone::hostPath(kFile, root);
        NSMutableDictionary* settings = readDictionary(file);
        if (!settings) return phone::failure(file + ": is no property list with settings; remove it to start afresh");
        id value = [settings objectForKey:[NSString stringWithUTF8String:key.c_str()]];
        if (![value respondsToSelector:@selector(boolValue)]) return std::optional<bool>();
        return std::optional<bool>([value boolValue]);
    }
}

}  // namespace tool

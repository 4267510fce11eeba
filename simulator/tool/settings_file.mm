#include "simulator/tool/settings_file.h"

#import <Foundation/Foundation.h>

#include <cstdio>
#include <fstream>
#include <system_error>

#include "simulator/runtime/phone_root.h"

namespace tool {
namespace {

constexpr const char* kFile = "/private/var/mobile/Library/Preferences/com.norvex.ZelkaCB.plist";

// nil when the file is there but holds no dictionary.
NSMutableDictionary* readDictionary(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return [NSMutableDictionary dictionary];
    NSData* data = [NSData dataWithContentsOfFile:[NSString stringWithUTF8String:file.c_str()]];
    id list = nil;
    @try {
        if (data) {
            list = [NSPropertyListSerialization propertyListWithData:data
                                                             options:NSPropertyListImmutable
                                                              format:nullptr
                                                               error:nullptr];
        }
    } @catch (NSException*) {
        // Some kinds of garbage make the parser raise.
        list = nil;
    }
    return [list isKindOfClass:[NSDictionary class]] ? [NSMutableDictionary dictionaryWithDictionary:list] : nil;
}

phone::Status replaceFile(const std::string& file, NSData* contents) {
    std::string part = file + ".part";
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(file).parent_path(), error);
    std::ofstream stream(part, std::ios::binary | std::ios::trunc);
    stream.write(static_cast<const char*>([contents bytes]), static_cast<std::streamsize>([contents length]));
    stream.close();
    if (!stream) return phone::Failure{part + ": cannot be written"};
    std::filesystem::rename(part, file, error);
    if (!error) return phone::Done{};
    std::string problem = error.message();
    std::filesystem::remove(part, error);
    return phone::Failure{file + ": " + problem};
}

}  // namespace

phone::Status setSwitch(const std::filesystem::path& root, const std::string& key, bool on) {
    @autoreleasepool {
        std::string file = phone::hostPath(kFile, root);
        NSMutableDictionary* settings = readDictionary(file);
        if (!settings) return phone::Failure{file + ": is no property list with settings; remove it to start afresh"};
        [settings setObject:[NSNumber numberWithBool:on] forKey:[NSString stringWithUTF8String:key.c_str()]];
        NSError* error = nil;
        NSData* contents = [NSPropertyListSerialization dataWithPropertyList:settings
                                                                      format:NSPropertyListXMLFormat_v1_0
                                                                     options:0
                                                                       error:&error];
        if (!contents) return phone::Failure{file + ": " + [[error localizedDescription] UTF8String]};
        return replaceFile(file, contents);
    }
}

}  // namespace tool

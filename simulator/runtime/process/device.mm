#import <Foundation/Foundation.h>

#import "simulator/runtime/file_system/property_list.h"
#include "simulator/runtime/process/device.h"

#include <cstdlib>
#include <functional>

namespace phone {
namespace {

struct Range {
    double low, high;
};

// One key of the file: how it is read into a device (false for a value that does not fit) and written.
struct Field {
    NSString* key;
    std::function<bool(id value, Device& device)> read;
    std::function<id(const Device& device)> write;
};

Field text(NSString* key, std::string Device::*member) {
    return {key,
            [member](id value, Device& device) {
                if (![value isKindOfClass:[NSString class]] || [value length] == 0) return false;
                device.*member = [value UTF8String];
                return true;
            },
            [member](const Device& device) -> id { return [NSString stringWithUTF8String:(device.*member).c_str()]; }};
}

bool readNumber(id value, Range range, double& number) {
    if (![value isKindOfClass:[NSNumber class]]) return false;
    number = [value doubleValue];
    return number >= range.low && number <= range.high;
}

Field real(NSString* key, double Device::*member, Range range) {
    return {key, [member, range](id value, Device& device) { return readNumber(value, range, device.*member); },
            [member](const Device& device) -> id { return [NSNumber numberWithDouble:device.*member]; }};
}

Field whole(NSString* key, int Device::*member, Range range) {
    return {key,
            [member, range](id value, Device& device) {
                double number = 0;
                if (!readNumber(value, range, number)) return false;
                device.*member = static_cast<int>(number);
                return true;
            },
            [member](const Device& device) -> id { return [NSNumber numberWithInt:device.*member]; }};
}

Field flag(NSString* key, bool Device::*member) {
    return {key,
            [member](id value, Device& device) {
                if (![value isKindOfClass:[NSNumber class]]) return false;
                device.*member = [value boolValue];
                return true;
            },
            [member](const Device& device) -> id { return [NSNumber numberWithBool:device.*member]; }};
}

Device& ownDevice() {
    static Device device;
    return device;
}

NSString* const kPreferencesService = @"PreferencesService";

const std::vector<Field>& fields() {
    static const std::vector<Field> all = {
        text(@"Model", &Device::model),
        text(@"Machine", &Device::machine),
        text(@"Name", &Device::name),
        text(@"SystemVersion", &Device::systemVersion),
        text(@"Region", &Device::region),
        text(@"Language", &Device::language),
        real(@"Width", &Device::width, {1, 10000}),
        real(@"Height", &Device::height, {1, 10000}),
        real(@"Scale", &Device::scale, {0.5, 8}),
        real(@"NativeScale", &Device::nativeScale, {0.5, 8}),
        whole(@"Idiom", &Device::idiom, {0, 1}),
        whole(@"Orientation", &Device::orientation, {1, 4}),
        flag(@"RightToLeft", &Device::rightToLeft),
        text(@"Processor", &Device::processor),
        flag(kPreferencesService, &Device::preferencesService),
    };
    return all;
}

NSString* devicePath(const std::filesystem::path& root) {
    return [NSString stringWithUTF8String:(root / "device.plist").c_str()];
}

Result<Device> readFields(NSDictionary* values, const std::string& path) {
    Device device;
    for (const Field& field : fields()) {
        id value = [values objectForKey:field.key];
        if (value != nil && !field.read(value, device)) {
            return failure(path + ": the value of " + [field.key UTF8String] +
                           " is unusable: " + [[value description] UTF8String]);
        }
    }
    if ([values objectForKey:kPreferencesService] == nil)
        device.preferencesService = hasPreferencesService(device.systemVersion);
    return device;
}

}  // namespace

bool hasPreferencesService(const std::string& systemVersion) { return std::atoi(systemVersion.c_str()) >= 8; }

bool operator==(const Device& a, const Device& b) {
    return a.model == b.model && a.machine == b.machine && a.name == b.name && a.systemVersion == b.systemVersion &&
           a.region == b.region && a.language == b.language && a.width == b.width && a.height == b.height &&
           a.scale == b.scale && a.nativeScale == b.nativeScale && a.idiom == b.idiom &&
           a.orientation == b.orientation && a.rightToLeft == b.rightToLeft && a.processor == b.processor &&
           a.preferencesService == b.preferencesService;
}

int systemNumber(const Device& device) { return std::atoi(device.systemVersion.c_str()); }

bool keepsCallStore(const Device& device) {
    constexpr int firstSystem = 8;
    return systemNumber(device) >= firstSystem;
}

const Device& device() { return ownDevice(); }

void setDevice(Device device) { ownDevice() = std::move(device); }

Result<Device> readDevice(const std::filesystem::path& root) {
    @autoreleasepool {
        NSString* path = devicePath(root);
        NSData* data = [NSData dataWithContentsOfFile:path];
        if (data == nil) return failure(std::string([path UTF8String]) + ": cannot be read");
        id values = readPropertyList(data);
        if (![values isKindOfClass:[NSDictionary class]]) {
            return failure(std::string([path UTF8String]) + ": not a property list with a dictionary");
        }
        return readFields(values, [path UTF8String]);
    }
}

Status writeDevice(const std::filesystem::path& root, const Device& device) {
    @autoreleasepool {
        NSMutableDictionary* values = [NSMutableDictionary dictionary];
        for (const Field& field : fields()) [values setObject:field.write(device) forKey:field.key];
        NSData* data = [NSPropertyListSerialization dataWithPropertyList:values
                                                                  format:NSPropertyListXMLFormat_v1_0
                                                                 options:0
                                                                   error:nullptr];
        NSString* path = devicePath(root);
        if (data == nil || ![data writeToFile:path atomically:YES]) {
            return failure(std::string([path UTF8String]) + ": cannot be written");
        }
        return {};
    }
}

}  // namespace phone

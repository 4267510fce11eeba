#include "simulator/frameworks/uikit/controller/UIDevice.h"

#include "simulator/runtime/process/device.h"

@implementation UIDevice

+ (UIDevice*)currentDevice {
    static UIDevice* device = [[UIDevice alloc] init];
    return device;
}

- (NSString*)systemVersion {
    return [NSString stringWithUTF8String:phone::device().systemVersion.c_str()];
}

- (NSString*)systemName {
    return @"iPhone OS";
}

- (NSString*)model {
    return [NSString stringWithUTF8String:phone::device().model.c_str()];
}

- (NSString*)name {
    return [NSString stringWithUTF8String:phone::device().name.c_str()];
}

- (UIUserInterfaceIdiom)userInterfaceIdiom {
    return static_cast<UIUserInterfaceIdiom>(phone::device().idiom);
}

@end

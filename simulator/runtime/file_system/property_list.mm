#import "simulator/runtime/file_system/property_list.h"

#include <plist/plist.h>
#include <string.h>

#include <string_view>

namespace phone {

bool isBinaryPropertyList(NSData* data) {
    constexpr std::string_view mark = "bplist";
    return [data length] >= mark.size() && memcmp([data bytes], mark.data(), mark.size()) == 0;
}

namespace {

// Another reader's opinion, which does look at lengths.
bool isSoundBinary(NSData* data) {
    if ([data length] > UINT32_MAX) return false;
    plist_t list = nullptr;
    plist_from_bin(static_cast<const char*>([data bytes]), static_cast<uint32_t>([data length]), &list);
    plist_free(list);
    return list != nullptr;
}

bool areAll(id<NSFastEnumeration> objects, bool (*test)(id)) {
    for (id object in objects) {
        if (!test(object)) return false;
    }
    return true;
}

bool isText(id object) { return [object isKindOfClass:[NSString class]]; }

// Whether a phone knows the notation and Foundation's reader can be let loose on the bytes: here, that reader believes
// what a damaged binary list says of its own lengths.
bool isSoundNotation(NSData* data) {
    if (isBinaryPropertyList(data)) return isSoundBinary(data);
    // This Foundation's own binary notation begins with one of these.
    return [data length] > 0 && static_cast<const unsigned char*>([data bytes])[0] > 1;
}

// The same list with blanks behind a text's end, which mean nothing: that reader compares words with what may be
// shorter.
NSData* withBlanksBehind(NSData* data) {
    constexpr std::string_view blanks = "                ";  // longer than any word of the notations
    const auto* bytes = static_cast<const unsigned char*>([data bytes]);
    const bool isSingleBytes = [data length] >= 2 && bytes[0] < 0x80 && bytes[1] != 0;
    if (!isSingleBytes || isBinaryPropertyList(data)) return data;
    NSMutableData* padded = [[data mutableCopy] autorelease];
    [padded appendBytes:blanks.data() length:blanks.size()];
    return padded;
}

}  // namespace

bool isPropertyList(id object) {
    if ([object isKindOfClass:[NSArray class]]) return areAll(object, isPropertyList);
    if ([object isKindOfClass:[NSDictionary class]]) {
        return areAll([object allKeys], isText) && areAll([object allValues], isPropertyList);
    }
    return isText(object) || [object isKindOfClass:[NSNumber class]] || [object isKindOfClass:[NSData class]] ||
           [object isKindOfClass:[NSDate class]];
}

id readPropertyList(NSData* data, const std::function<id(NSData* sound)>& read) {
    if (!isSoundNotation(data)) return nil;
    @try {
        id list = read(withBlanksBehind(data));
        return isPropertyList(list) ? list : nil;
    } @catch (NSException*) {
        return nil;
    }
}

id readPropertyList(NSData* data) {
    return readPropertyList(data, [](NSData* sound) -> id {
        return [NSPropertyListSerialization propertyListWithData:sound
                                                         options:NSPropertyListImmutable
                                                          format:nullptr
                                                           error:nullptr];
    });
}

}  // namespace phone

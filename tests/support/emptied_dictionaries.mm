#include "tests/support/emptied_dictionaries.h"

#include <objc/runtime.h>

namespace test {
namespace {

NSMutableArray* emptied = nil;
IMP removeAllObjects = nullptr;

void noteAndRemove(id self, SEL command) {
    NSDictionary* held = [NSDictionary dictionaryWithDictionary:self];
    if ([held count] > 0) [emptied addObject:held];
    reinterpret_cast<void (*)(id, SEL)>(removeAllObjects)(self, command);
}

}  // namespace

void watchEmptiedDictionaries() {
    emptied = [[NSMutableArray alloc] init];
    Method method = class_getInstanceMethod([[NSMutableDictionary dictionary] class], @selector(removeAllObjects));
    removeAllObjects = method_setImplementation(method, reinterpret_cast<IMP>(&noteAndRemove));
}

NSArray* emptiedDictionariesWith(NSString* key) {
    NSMutableArray* found = [NSMutableArray array];
    for (NSDictionary* held in emptied)
        if ([held objectForKey:key] != nil) [found addObject:held];
    return found;
}

}  // namespace test

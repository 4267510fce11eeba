// Preferences.framework, as far as settings pages that come with a tweak use it. Apple publishes no headers of it; the
// names and signatures are those that class dumps of the system's framework list.
#pragma once

#import <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, PSCellType) {
    PSGroupCell = 0,
    PSLinkCell = 1,
    PSTitleValueCell = 4,
    PSSwitchCell = 6,
    PSStaticTextCell = 7,
    PSButtonCell = 13,
};

// One row of a list, or the beginning of a group of rows. Main thread.
@interface PSSpecifier : NSObject {
  @public
    id target;  // unowned
    SEL getter;
    SEL setter;
    SEL action;
    Class detailControllerClass;
    NSInteger cellType;

  @private
    NSString* _name;
    NSMutableDictionary* _properties;
}

+ (PSSpecifier*)preferenceSpecifierNamed:(NSString*)name
                                  target:(id)target
                                     set:(SEL)setter
                                     get:(SEL)getter
                                  detail:(Class)detail
                                    cell:(NSInteger)cellType
                                    edit:(Class)edit;  // +0

@property (nonatomic, copy) NSString* name;
@property (nonatomic, assign) id target;
@property (nonatomic, copy) NSString* identifier;  // the property "id", else "key", else the name
@property (nonatomic, readonly) NSInteger cellType;

- (NSDictionary*)properties;                          // +0
- (id)propertyForKey:(NSString*)key;                  // +0
- (void)setProperty:(id)value forKey:(NSString*)key;  // nil takes it away
- (void)removePropertyForKey:(NSString*)key;

// Ask the target, by the getter and setter; without one, nothing happens and the value is nil.
- (id)performGetter;
- (void)performSetterWithValue:(id)value;

// The type that a property list means by a name such as PSSwitchCell. Raises for one that the stand-in does not have.
+ (NSInteger)_cellTypeNamed:(NSString*)name;

@end

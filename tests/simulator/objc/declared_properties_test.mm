#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "simulator/frameworks/objc/runtime.h"

@interface PropertyParent : NSObject
@end
@implementation PropertyParent
@end

@interface PropertyChild : PropertyParent
@end
@implementation PropertyChild
@end

namespace {

const objc_property_attribute_t dynamicNumber[] = {{"T", "q"}, {"D", ""}, {"N", ""}};
const objc_property_attribute_t storedTruth[] = {{"T", "B"}, {"N", ""}, {"V", "_truth"}};

const char* attributesOf(Class cls, const char* name) { return property_getAttributes(class_getProperty(cls, name)); }

TEST(DeclaredProperties, AreFoundOnTheClassAndThoseUnderIt) {
    ASSERT_EQ(class_getProperty([PropertyParent class], "inherited"), nullptr);
    EXPECT_TRUE(class_addProperty([PropertyParent class], "inherited", dynamicNumber, 3));
    EXPECT_STREQ(property_getName(class_getProperty([PropertyParent class], "inherited")), "inherited");
    EXPECT_STREQ(attributesOf([PropertyParent class], "inherited"), "Tq,D,N");
    EXPECT_EQ(class_getProperty([PropertyChild class], "inherited"),
              class_getProperty([PropertyParent class], "inherited"));
    EXPECT_EQ(class_getProperty([NSObject class], "inherited"), nullptr);
    EXPECT_EQ(class_getProperty([PropertyParent class], "inherite"), nullptr);
}

TEST(DeclaredProperties, AreAddedOnceToAClassButOverrideInheritedOnes) {
    EXPECT_TRUE(class_addProperty([PropertyParent class], "twice", dynamicNumber, 3));
    EXPECT_FALSE(class_addProperty([PropertyParent class], "twice", storedTruth, 3));
    EXPECT_STREQ(attributesOf([PropertyParent class], "twice"), "Tq,D,N");
    EXPECT_TRUE(class_addProperty([PropertyChild class], "twice", storedTruth, 3));
    EXPECT_STREQ(attributesOf([PropertyChild class], "twice"), "TB,N,V_truth");
}

TEST(DeclaredProperties, AreListedForTheirClassAlone) {
    Class cls = objc_allocateClassPair([PropertyParent class], "PropertyLister", 0);
    objc_registerClassPair(cls);
    unsigned count = 7;
    EXPECT_EQ(class_copyPropertyList(cls, &count), nullptr);
    EXPECT_EQ(count, 0u);
    class_addProperty(cls, "first", dynamicNumber, 3);
    class_addProperty(cls, "second", storedTruth, 3);
    objc_property_t* list = class_copyPropertyList(cls, &count);
    ASSERT_EQ(count, 2u);
    EXPECT_STREQ(property_getName(list[0]), "first");
    EXPECT_STREQ(property_getName(list[1]), "second");
    EXPECT_EQ(list[2], nullptr);
    free(list);
}

TEST(DeclaredProperties, OfNothingAreNone) {
    EXPECT_FALSE(class_addProperty(Nil, "name", dynamicNumber, 3));
    EXPECT_FALSE(class_addProperty([PropertyParent class], nullptr, dynamicNumber, 3));
    EXPECT_EQ(class_getProperty(Nil, "name"), nullptr);
    EXPECT_EQ(class_getProperty([PropertyParent class], nullptr), nullptr);
    EXPECT_EQ(class_copyPropertyList(Nil, nullptr), nullptr);
    EXPECT_EQ(property_getName(nullptr), nullptr);
    EXPECT_EQ(property_getAttributes(nullptr), nullptr);
}

}  // namespace

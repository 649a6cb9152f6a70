#include "platform/foundation/NSClassTable.h"

#include "platform/foundation/FoundationClasses.h"

#include <gtest/gtest.h>

TEST(NSClassTable, FindsClassesByName)
{
    const NSClassTable table{&NSStringClass, &NSArrayClass};
    EXPECT_EQ(table.classNamed("NSString"), &NSStringClass);
    EXPECT_EQ(table.classNamed("NSArray"), &NSArrayClass);
    EXPECT_EQ(table.classNamed("NSData"), nullptr);
    EXPECT_EQ(table.classNamed(""), nullptr);
}

TEST(NSClassTable, AddsToAnother)
{
    const NSClass gadget{"Gadget", &NSObjectClass, nullptr};
    const NSClassTable base{&NSStringClass};
    const NSClassTable table(base, {&gadget});
    EXPECT_EQ(table.classNamed("NSString"), &NSStringClass);
    EXPECT_EQ(table.classNamed("Gadget"), &gadget);
    EXPECT_EQ(base.classNamed("Gadget"), nullptr);
}

TEST(NSClassTable, TakesTheLaterOfTwoClassesOfOneName)
{
    const NSClass replacement{"NSString", &NSObjectClass, nullptr};
    const NSClassTable base{&NSStringClass};
    EXPECT_EQ(NSClassTable(base, {&replacement}).classNamed("NSString"), &replacement);
}

TEST(NSClass, KnowsItsAncestors)
{
    EXPECT_TRUE(NSMutableStringClass.isSubclassOfClass(NSMutableStringClass));
    EXPECT_TRUE(NSMutableStringClass.isSubclassOfClass(NSStringClass));
    EXPECT_TRUE(NSMutableStringClass.isSubclassOfClass(NSObjectClass));
    EXPECT_FALSE(NSStringClass.isSubclassOfClass(NSMutableStringClass));
    EXPECT_FALSE(NSStringClass.isSubclassOfClass(NSDataClass));
}

TEST(FoundationClasses, HoldsWhatArchivesOfThePlatformHold)
{
    for (const auto* name :
         {"NSString", "NSMutableString", "NSNumber", "NSData", "NSMutableData", "NSDate", "NSNull", "NSArray",
          "NSMutableArray", "NSSet", "NSMutableSet", "NSOrderedSet", "NSMutableOrderedSet", "NSDictionary",
          "NSMutableDictionary", "NSURL", "NSUUID", "NSValue", "NSFileWrapper"}) {
        const auto* found = foundationClasses().classNamed(name);
        ASSERT_TRUE(found) << name;
        EXPECT_TRUE(found->initWithCoder) << name;
    }
}

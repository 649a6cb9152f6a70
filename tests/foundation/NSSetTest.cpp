#include "platform/foundation/NSSet.h"

#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSObjectKeyedDictionary.h"
#include "platform/foundation/NSUUID.h"

#include <gtest/gtest.h>

TEST(NSSet, IsEqualWhateverTheOrder)
{
    const NSSet one({1, u"two", NSData{"three"}});
    EXPECT_TRUE(one.isEqual(NSSet({NSData{"three"}, 1, u"two"})));
    EXPECT_EQ(one.hash(), NSSet({NSData{"three"}, 1, u"two"}).hash());
    EXPECT_FALSE(one.isEqual(NSSet({1, u"two", NSData{"four"}})));
    EXPECT_FALSE(one.isEqual(NSSet({1, u"two"})));
    EXPECT_FALSE(one.isEqual(NSOrderedSet({1, u"two", NSData{"three"}})));
}

TEST(NSSet, KnowsItsMembers)
{
    const NSSet set({1, u"two"});
    EXPECT_TRUE(set.containsObject(u"two"));
    EXPECT_TRUE(set.containsObject(1.0));
    EXPECT_FALSE(set.containsObject(u"three"));
}

TEST(NSSet, IsComparedQuicklyWhenAllMembersHashAlike)
{
    NSAny::Array members;
    for (int index = 0; index < 20'000; ++index)
        members.push_back(NSAny::Array{index});
    NSAny::Array reversed(members.rbegin(), members.rend());
    const NSSet set(members);
    EXPECT_TRUE(set.isEqual(NSSet(members)));
    EXPECT_FALSE(set.isEqual(NSSet(reversed)));
}

TEST(NSOrderedSet, IsEqualInOneOrderOnly)
{
    const NSOrderedSet one({1, 2});
    EXPECT_TRUE(one.isEqual(NSOrderedSet({1, 2})));
    EXPECT_FALSE(one.isEqual(NSOrderedSet({2, 1})));
    EXPECT_FALSE(one.isEqual(NSSet({1, 2})));
}

TEST(NSNull, IsOneObject)
{
    EXPECT_EQ(NSNull::null(), NSNull::null());
    EXPECT_EQ(NSNull::null().identity(), NSNull::null().identity());
    EXPECT_NE(NSNull::null(), NSAny());
}

TEST(NSUUID, HasTheUsualForm)
{
    const NSUUID::Bytes bytes{0x0A, 0xD8, 0x63, 0xBA, 0x75, 0x84, 0x40, 0xCF,
                              0x88, 0x96, 0xBD, 0x87, 0xB3, 0x28, 0x0C, 0x34};
    EXPECT_EQ(NSUUID(bytes).string(), "0AD863BA-7584-40CF-8896-BD87B3280C34");
    EXPECT_TRUE(NSUUID(bytes).isEqual(NSUUID(bytes)));
    EXPECT_FALSE(NSUUID(bytes).isEqual(NSUUID::UUID()));
    EXPECT_NE(NSUUID::UUIDString(), NSUUID::UUIDString());
}

TEST(NSObjectKeyedDictionary, ComparesItsEntriesInOrder)
{
    const NSObjectKeyedDictionary one({{1, u"one"}, {u"two", 2}});
    EXPECT_TRUE(one.isEqual(NSObjectKeyedDictionary({{1, u"one"}, {u"two", 2}})));
    EXPECT_FALSE(one.isEqual(NSObjectKeyedDictionary({{u"two", 2}, {1, u"one"}})));
}

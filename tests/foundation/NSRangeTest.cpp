#include "platform/foundation/NSRange.h"

#include <gtest/gtest.h>

TEST(NSRange, EndsBehindItsLastLocation)
{
    constexpr auto range = NSMakeRange(10, 3);
    EXPECT_EQ(NSMaxRange(range), 13U);
    EXPECT_FALSE(NSLocationInRange(9, range));
    EXPECT_TRUE(NSLocationInRange(10, range));
    EXPECT_TRUE(NSLocationInRange(12, range));
    EXPECT_FALSE(NSLocationInRange(13, range));
    EXPECT_FALSE(NSLocationInRange(10, NSMakeRange(10, 0)));
}

TEST(NSRange, IntersectsWithAnother)
{
    EXPECT_EQ(NSIntersectionRange({0, 5}, {3, 5}), (NSRange{3, 2}));
    EXPECT_EQ(NSIntersectionRange({3, 5}, {0, 5}), (NSRange{3, 2}));
    EXPECT_EQ(NSIntersectionRange({0, 10}, {2, 3}), (NSRange{2, 3}));
    EXPECT_EQ(NSIntersectionRange({0, 3}, {3, 3}), NSRange());
    EXPECT_EQ(NSIntersectionRange({4, 0}, {0, 9}), NSRange());
}

TEST(NSRange, UnitesWithAnother)
{
    EXPECT_EQ(NSUnionRange({0, 3}, {5, 2}), (NSRange{0, 7}));
    EXPECT_EQ(NSUnionRange({5, 2}, {0, 3}), (NSRange{0, 7}));
    EXPECT_EQ(NSUnionRange({0, 9}, {2, 3}), (NSRange{0, 9}));
}

TEST(NSRange, HasATextualForm)
{
    EXPECT_EQ(NSStringFromRange({10, 3}), u"{10, 3}");
    EXPECT_EQ(NSStringFromRange({NSNotFound, 0}), u"{9223372036854775807, 0}");
}

TEST(NSRange, ReadsTheFirstTwoNumbersOfAText)
{
    struct Case {
        std::u16string_view text;
        NSRange expected;
    };

    const Case cases[] = {
        {u"{10, 3}", {10, 3}},
        {u"10 3", {10, 3}},
        {u"{10}", {10, 0}},
        {u"", {0, 0}},
        {u"none", {0, 0}},
        {u"a1b2c3", {1, 2}},
        {u"-4,5", {4, 5}},
        {u"99999999999999999999, 1", {NSNotFound, 1}},
        {u"9223372036854775807,9223372036854775808", {NSNotFound, NSNotFound}},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(NSRangeFromString(text), expected);
}

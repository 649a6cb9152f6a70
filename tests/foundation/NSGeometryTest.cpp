#include "platform/foundation/NSGeometry.h"

#include <gtest/gtest.h>

TEST(NSGeometry, WritesThePlatformsForms)
{
    EXPECT_EQ(NSStringFromPoint({1, -2.5}), u"{1, -2.5}");
    EXPECT_EQ(NSStringFromSize({0.1, 100}), u"{0.1, 100}");
    EXPECT_EQ(NSStringFromRect({{400, 300}, {200, 300}}), u"{{400, 300}, {200, 300}}");
}

TEST(NSGeometry, ReadsWhatItWrites)
{
    const NSRect rects[] = {{}, {{1, 2}, {3, 4}}, {{-0.1, 1e30}, {1e-7, 123456789.123}}};
    for (const auto& rect : rects) {
        EXPECT_EQ(NSRectFromString(NSStringFromRect(rect)), rect);
        EXPECT_EQ(NSPointFromString(NSStringFromPoint(rect.origin)), rect.origin);
        EXPECT_EQ(NSSizeFromString(NSStringFromSize(rect.size)), rect.size);
    }
}

TEST(NSGeometry, TakesNumbersThatAreMissingForZero)
{
    EXPECT_EQ(NSPointFromString(u""), NSPoint());
    EXPECT_EQ(NSPointFromString(u"{7"), (NSPoint{7, 0}));
    EXPECT_EQ(NSRectFromString(u"{{1, 2}, {3"), (NSRect{{1, 2}, {3, 0}}));
    EXPECT_EQ(NSPointFromString(u"-, ., {5, 6}"), (NSPoint{5, 6}));
    EXPECT_EQ(NSPointFromString(u"{1, 2, 3}"), (NSPoint{1, 2}));
}

TEST(NSGeometry, MakesRectanglesOfWholeNumbersByGrowingThem)
{
    EXPECT_EQ(NSIntegralRect({{0, -4.76}, {20, 18}}), (NSRect{{0, -5}, {20, 19}}));
    EXPECT_EQ(NSIntegralRect({{0.5, 1}, {2, 3}}), (NSRect{{0, 1}, {3, 3}}));
    EXPECT_EQ(NSIntegralRect({{-1, -2}, {3, 4}}), (NSRect{{-1, -2}, {3, 4}}));
    EXPECT_EQ(NSIntegralRect({{0.5, 0.5}, {0, 4}}), NSRect());
    EXPECT_EQ(NSIntegralRect({{0.5, 0.5}, {4, -1}}), NSRect());
}

TEST(NSGeometry, HasTheEdgesAtTheOriginInARectangle)
{
    const NSRect rect{{1, 2}, {3, 4}};
    EXPECT_TRUE(NSPointInRect({1, 2}, rect));
    EXPECT_TRUE(NSPointInRect({3.9, 5.9}, rect));
    EXPECT_FALSE(NSPointInRect({4, 3}, rect));
    EXPECT_FALSE(NSPointInRect({2, 6}, rect));
    EXPECT_FALSE(NSPointInRect({0.9, 3}, rect));
    EXPECT_FALSE(NSPointInRect({2, 1.9}, rect));
}

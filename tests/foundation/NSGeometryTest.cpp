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

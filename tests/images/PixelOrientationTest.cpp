#include "platform/images/PixelOrientation.h"

#include <gtest/gtest.h>

namespace {

/// Three wide, two high.
const BitmapPixels kStored{3, 2, {1, 2, 3, 4, 5, 6}};

TEST(PixelOrientation, ShowsAllEightOrientations)
{
    const std::vector<BitmapPixels> shown = {
        {3, 2, {1, 2, 3, 4, 5, 6}}, {3, 2, {3, 2, 1, 6, 5, 4}}, {3, 2, {6, 5, 4, 3, 2, 1}},
        {3, 2, {4, 5, 6, 1, 2, 3}}, {2, 3, {1, 4, 2, 5, 3, 6}}, {2, 3, {4, 1, 5, 2, 6, 3}},
        {2, 3, {6, 3, 5, 2, 4, 1}}, {2, 3, {3, 6, 2, 5, 1, 4}},
    };
    for (int orientation = 1; orientation <= 8; ++orientation)
        EXPECT_EQ(uprightPixels(kStored, orientation), shown[static_cast<std::size_t>(orientation) - 1])
            << orientation;
}

TEST(PixelOrientation, LeavesPixelsOfAnyOtherNumberAsTheyAre)
{
    for (const int orientation : {-1, 0, 9, 1000})
        EXPECT_EQ(uprightPixels(kStored, orientation), kStored);
}

TEST(PixelOrientation, TurnsTheLastFourOnTheirSide)
{
    EXPECT_FALSE(isTurnedOnSide(4));
    EXPECT_TRUE(isTurnedOnSide(5));
}

} // namespace

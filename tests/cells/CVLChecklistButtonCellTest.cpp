#include "cells/CVLChecklistButtonCell.h"

#include <gtest/gtest.h>

TEST(CVLChecklistButtonCell, HasTheFixedSizes)
{
    EXPECT_EQ(CVLChecklistImageDimension, 18.0);
    EXPECT_EQ(CVLChecklistRightBorder, 2.0);
    EXPECT_EQ(CVLChecklistButtonCell().cellSize(), (NSSize{20, 18}));
}

TEST(CVLChecklistButtonCell, HasItsImageAtTheLeftAndHalfWayUp)
{
    const CVLChecklistButtonCell button;
    EXPECT_EQ(button.imageRectForBounds({{3, 5}, {20, 18}}), (NSRect{{3, 5}, {18, 18}}));
    EXPECT_EQ(button.imageRectForBounds({{0, 10}, {40, 28}}), (NSRect{{0, 15}, {18, 18}}));
    EXPECT_EQ(button.imageRectForBounds({{0, 0}, {20, 10}}), (NSRect{{0, -4}, {18, 18}}));
}

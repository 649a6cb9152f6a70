#include "paragraphs/FontMetrics.h"

#include <gtest/gtest.h>

#include <cmath>

using CVLExtensions::lineHeightFromMetrics;

TEST(FontMetrics, RoundsTheLineHeightUp)
{
    EXPECT_EQ(lineHeightFromMetrics(9.1, -2.4, 0), 12); // 11.5
    EXPECT_EQ(lineHeightFromMetrics(9, -3, 0.25), 13); // 12.25
}

TEST(FontMetrics, TakesTheDescenderWithoutItsSign)
{
    EXPECT_EQ(lineHeightFromMetrics(9, -3, 0), 12);
    EXPECT_EQ(lineHeightFromMetrics(9, 3, 0), 12);
}

TEST(FontMetrics, AddsTheLeadingToTheLineHeight)
{
    EXPECT_EQ(lineHeightFromMetrics(9, -3, 2), 14);
}

TEST(FontMetrics, RoundsInSinglePrecision)
{
    // One more than 12 in double precision, but 12 itself in single precision.
    EXPECT_EQ(lineHeightFromMetrics(9, -3, 1e-9), 12);
}

TEST(FontMetrics, GivesAFontsLineHeight)
{
    const auto font = NSFont::systemFontOfSize(13);
    ASSERT_NE(font, nullptr);
    const double sum = font->ascender() - font->descender() + font->leading();
    EXPECT_EQ(CVLExtensions::lineHeight(*font), std::ceil(static_cast<float>(sum)));
    EXPECT_GE(CVLExtensions::lineHeight(*font), 13);
}

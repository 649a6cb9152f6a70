#include "colours/ColourSwatch.h"

#include <gtest/gtest.h>

using namespace CVLExtensions;

namespace {

std::uint32_t pixel(const NSImage& image, std::size_t x, std::size_t y)
{
    return image.pixels()[y * image.pixelsWide() + x];
}

TEST(ColourSwatch, IsADiscWithinAMarginOfTwoPoints)
{
    const auto image = menuImageForColor(NSColor::colorWithRed(1, 0, 0, 1), {16, 16});
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->size(), (NSSize{16, 16}));
    EXPECT_EQ(pixel(*image, 8, 8), 0xffff0000U);
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(pixel(*image, 1, i), 0U);
        EXPECT_EQ(pixel(*image, i, 14), 0U);
    }
    EXPECT_NE(pixel(*image, 8, 2), 0U);
    EXPECT_NE(pixel(*image, 8, 13), 0U);
}

// The rim is one point wide and lies within the disc, from 2 to 3 points at its edge.
TEST(ColourSwatch, HasADarkerRim)
{
    const auto white = NSColor::colorWithRed(1, 1, 1, 1);
    const auto image = menuImageForColor(white, {64, 64}, 4);
    const auto rim = *white->shadowWithLevel(0.1)->deviceRGBComponents();
    const auto level = pixel(*image, 128, 10) & 0xffU;
    EXPECT_NEAR(level, rim.blue * 255, 1);
    EXPECT_LT(level, 255U);
    EXPECT_EQ(pixel(*image, 128, 14), 0xffffffffU);
    EXPECT_EQ(pixel(*image, 128, 6), 0U);
}

TEST(ColourSwatch, IsWhiteWithoutAColour)
{
    EXPECT_TRUE(
        menuImageForColor(nullptr, {16, 16})->isEqual(*menuImageForColor(NSColor::whiteColor(), {16, 16})));
}

TEST(ColourSwatch, IsEmptyWhenThereIsNoRoomForADisc)
{
    const auto image = menuImageForColor(NSColor::blackColor(), {4, 4});
    ASSERT_NE(image, nullptr);
    for (const auto value : image->pixels())
        EXPECT_EQ(value, 0U);
    EXPECT_EQ(menuImageForColor(NSColor::blackColor(), {0, 16}), nullptr);
}

TEST(ColourSwatch, ShadesTheAccentColourForLinks)
{
    const auto accent
        = NSColor::controlAccentColor()->colorUsingColorSpace(NSColorSpace::genericRGBColorSpace());
    const auto link = linkTextColor();
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(link->components()[i], accent->components()[i] * 0.9, 1e-12);
    EXPECT_EQ(link->alphaComponent(), 1);
}

} // namespace

#include "platform/text/NSImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

NSImage::Ref imageWithDisc(NSSize size, NSRect disc, double scale = 1)
{
    return NSImage::imageWithSize(
        size,
        [disc](NSGraphicsContext& context) {
            context.fillOvalInRect(disc, *NSColor::colorWithRed(1, 0, 0, 1));
        },
        scale);
}

std::uint32_t pixel(const NSImage& image, std::size_t x, std::size_t y)
{
    return image.pixels()[y * image.pixelsWide() + x];
}

TEST(NSImage, FillsTheInsideOfAnOvalOnly)
{
    const auto image = imageWithDisc({16, 16}, NSMakeRect(0, 0, 16, 16));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(pixel(*image, 8, 8), 0xffff0000U);
    EXPECT_EQ(pixel(*image, 0, 0), 0U);
    EXPECT_EQ(pixel(*image, 15, 15), 0U);
}

TEST(NSImage, HasItsOriginAtTheLowerLeft)
{
    const auto image = imageWithDisc({16, 16}, NSMakeRect(0, 0, 8, 8));
    EXPECT_EQ(pixel(*image, 4, 12), 0xffff0000U);
    EXPECT_EQ(pixel(*image, 4, 4), 0U);
    EXPECT_EQ(pixel(*image, 12, 12), 0U);
}

TEST(NSImage, HasSeveralPixelsToAPoint)
{
    const auto image = imageWithDisc({10, 4.5}, NSMakeRect(0, 0, 10, 4), 2);
    EXPECT_EQ(image->size(), (NSSize{10, 4.5}));
    EXPECT_EQ(image->pixelsWide(), 20U);
    EXPECT_EQ(image->pixelsHigh(), 9U);
    EXPECT_EQ(pixel(*image, 10, 4), 0xffff0000U);
}

TEST(NSImage, MultipliesPixelsByAlpha)
{
    const auto image = NSImage::imageWithSize({4, 4}, [](NSGraphicsContext& context) {
        context.fillOvalInRect(NSMakeRect(-4, -4, 12, 12), *NSColor::colorWithRed(1, 1, 1, 0.2));
    });
    EXPECT_EQ(pixel(*image, 2, 2), 0x33333333U);
}

TEST(NSImage, DrawsNothingInAnEmptyRectangle)
{
    const auto image = NSImage::imageWithSize({4, 4}, [](NSGraphicsContext& context) {
        context.fillOvalInRect(NSMakeRect(2, 2, 0, 4), *NSColor::blackColor());
        context.strokeOvalInRect(NSMakeRect(2, 2, -1, 4), 1, *NSColor::blackColor());
        context.fillOvalInRect(NSMakeRect(0, 0, 4, 4),
                               *NSColor::colorWithCatalogName(u"None", u"none", nullptr));
    });
    ASSERT_NE(image, nullptr);
    for (const auto value : image->pixels())
        EXPECT_EQ(value, 0U);
}

TEST(NSImage, RefusesSizesThatNoImageHas)
{
    const auto nothing = [](NSGraphicsContext&) {};
    const auto infinity = std::numeric_limits<double>::infinity();
    for (const double side : {0.0, -1.0, std::nan(""), infinity, 1e9})
        EXPECT_EQ(NSImage::imageWithSize({side, 8}, nothing), nullptr) << side;
    EXPECT_EQ(NSImage::imageWithSize({8, 8}, nothing, 0), nullptr);
    EXPECT_EQ(NSImage::imageWithSize({8, 8}, nothing, 1e6), nullptr);
}

TEST(NSImage, EqualsByItsPixels)
{
    EXPECT_TRUE(imageWithDisc({8, 8}, NSMakeRect(0, 0, 8, 8))
                    ->isEqual(*imageWithDisc({8, 8}, NSMakeRect(0, 0, 8, 8))));
    EXPECT_FALSE(imageWithDisc({8, 8}, NSMakeRect(0, 0, 8, 8))
                     ->isEqual(*imageWithDisc({8, 8}, NSMakeRect(0, 0, 4, 4))));
}

} // namespace

#include "platform/drawing/NSImage.h"

#include "tests/drawing/Ink.h"

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

TEST(NSImage, HasNoInkFromAnEmptyRectangle)
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

// One image on another, flipped or not, stands upright: its red foot is below.
NSImage::Ref signpost(bool vector)
{
    const auto draw = [](NSGraphicsContext& context) {
        context.fillRect(NSMakeRect(0, 0, 4, 2), *NSColor::colorWithRed(1, 0, 0, 1));
        context.fillRect(NSMakeRect(0, 2, 4, 2), *NSColor::colorWithRed(0, 0, 1, 1));
    };
    return vector ? NSImage::imageWithSize({4, 4}, Flipped::No, draw) : NSImage::imageWithSize({4, 4}, draw);
}

TEST(NSImage, StandsUprightWhereverItIsDrawn)
{
    for (const bool vector : {false, true}) {
        for (const auto flipped : {Flipped::No, Flipped::Yes}) {
            const auto pixels = DrawingSurface{{16, 16}, NSAppearance::Light, flipped}.pixels(
                [&](NSGraphicsContext& context) {
                    const auto y = context.isFlipped() ? 2.0 : 6.0;
                    signpost(vector)->drawInRect(NSMakeRect(4, y, 8, 8), context);
                });
            ASSERT_TRUE(pixels);
            EXPECT_EQ(inkOf(*pixels), (Ink{4, 2, 12, 10}));
            EXPECT_EQ(pixel(*pixels, 5, 3), 0xff0000ffU);
            EXPECT_EQ(pixel(*pixels, 5, 9), 0xffff0000U);
        }
    }
}

TEST(NSImage, DrawsAHandlerWithTheOriginThatItAskedFor)
{
    const auto image = NSImage::imageWithSize({8, 8}, Flipped::Yes, [](NSGraphicsContext& context) {
        EXPECT_TRUE(context.isFlipped());
        context.fillRect(NSMakeRect(0, 0, 2, 2), *NSColor::blackColor());
    });
    for (const auto flipped : {Flipped::No, Flipped::Yes}) {
        const auto pixels = DrawingSurface{{8, 8}, NSAppearance::Light, flipped}.pixels(
            [&](NSGraphicsContext& context) { image->drawInRect(NSMakeRect(0, 0, 8, 8), context); });
        EXPECT_EQ(inkOf(*pixels), (Ink{0, 0, 2, 2}));
    }
}

TEST(NSImage, IsDrawnAnewInTheScaleAndAppearanceOfThePlace)
{
    const auto image = NSImage::imageWithSize({8, 8}, Flipped::No, [](NSGraphicsContext& context) {
        context.fillOvalInRect(NSMakeRect(0, 0, 8, 8), *NSColor::textColor());
    });
    EXPECT_EQ(image->pixelsWide(), 0U);
    EXPECT_TRUE(image->pixels().empty());
    const auto pixels = DrawingSurface{{8, 8}, NSAppearance::Dark}.pixels(
        [&](NSGraphicsContext& context) { image->drawInRect(NSMakeRect(0, 0, 8, 8), context); }, 16);
    EXPECT_EQ(pixel(*pixels, 64, 64), 0xffffffffU);
    // A disc of 64 pixels radius, sharp: nearly all of its ink is whole.
    EXPECT_NEAR(amountOfInk(*pixels), M_PI * 64 * 64, 10);
}

TEST(NSImage, DoesNotDrawOutsideOfItselfNorChangeTheStateAround)
{
    const auto image = NSImage::imageWithSize({8, 8}, Flipped::No, [](NSGraphicsContext& context) {
        context.restoreGraphicsState();
        context.saveGraphicsState();
        context.translate(100, 100);
        context.fillRect(NSMakeRect(-200, -200, 400, 400), *NSColor::blackColor());
    });
    const auto pixels = DrawingSurface{{16, 16}}.pixels([&](NSGraphicsContext& context) {
        image->drawInRect(NSMakeRect(0, 0, 8, 8), context);
        context.fillRect(NSMakeRect(15, 0, 1, 1), *NSColor::blackColor());
    });
    EXPECT_EQ(amountOfInk(*pixels), 65);
    EXPECT_EQ(pixel(*pixels, 15, 15), 0xff000000U);
}

TEST(NSImage, KeepsItsEdgesWhenItIsEnlarged)
{
    const auto image = NSImage::imageWithSize({2, 2}, [](NSGraphicsContext& context) {
        context.fillRect(NSMakeRect(0, 0, 2, 2), *NSColor::colorWithRed(1, 0, 0, 1));
    });
    const auto pixels = DrawingSurface{{32, 32}}.pixels(
        [&](NSGraphicsContext& context) { image->drawInRect(NSMakeRect(0, 0, 32, 32), context); });
    EXPECT_EQ(amountOfInk(*pixels), 1024);
}

TEST(NSImage, OutlivesItsBitmapInVectorDocuments)
{
    const auto draw
        = [](NSGraphicsContext& context) { signpost(false)->drawInRect(NSMakeRect(0, 0, 8, 8), context); };
    const auto svg = DrawingSurface{{8, 8}}.SVGRepresentation(draw);
    ASSERT_TRUE(svg);
    EXPECT_NE(svg->bytes.find("data:image/png;base64,"), std::string::npos);
    const auto pdf = DrawingSurface{{8, 8}}.PDFRepresentation(draw);
    ASSERT_TRUE(pdf);
    EXPECT_NE(pdf->bytes.find("/Subtype /Image"), std::string::npos);
}

TEST(NSImage, DrawsNothingInARectangleWithoutArea)
{
    const auto infinity = std::numeric_limits<double>::infinity();
    const auto pixels = DrawingSurface{{8, 8}}.pixels([&](NSGraphicsContext& context) {
        for (const double side : {0.0, -4.0, std::nan(""), infinity})
            signpost(true)->drawInRect(NSMakeRect(0, 0, 4, side), context);
    });
    EXPECT_EQ(inkOf(*pixels), Ink{});
}

TEST(NSImage, RefusesDrawingsWithoutSizeOrHandler)
{
    const auto nothing = [](NSGraphicsContext&) {};
    EXPECT_EQ(NSImage::imageWithSize({8, 0}, Flipped::No, nothing), nullptr);
    EXPECT_EQ(NSImage::imageWithSize({std::nan(""), 8}, Flipped::No, nothing), nullptr);
    EXPECT_EQ(NSImage::imageWithSize({8, 8}, Flipped::No, nullptr), nullptr);
}

TEST(NSImage, EqualsItsCopyButNoOtherDrawing)
{
    for (const bool vector : {false, true}) {
        const auto image = signpost(vector);
        const auto copy = image->copy();
        EXPECT_NE(copy, image);
        EXPECT_TRUE(copy->isEqual(*image));
        EXPECT_EQ(copy->hash(), image->hash());
        EXPECT_EQ(copy->size(), (NSSize{4, 4}));
    }
    EXPECT_FALSE(signpost(true)->isEqual(*signpost(true)));
    EXPECT_FALSE(signpost(true)->isEqual(*signpost(false)));
}

} // namespace

#include "platform/drawing/NSGraphicsContext.h"

#include "platform/drawing/NSBezierPath.h"
#include "platform/text/NSColor.h"
#include "tests/drawing/Ink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;
constexpr auto kInfinity = std::numeric_limits<double>::infinity();

NSColor::Ref red()
{
    return NSColor::colorWithRed(1, 0, 0, 1);
}

BitmapPixels drawn(const NSDrawing& drawing, Flipped flipped = Flipped::No,
                   NSAppearance appearance = NSAppearance::Light)
{
    return DrawingSurface{{16, 16}, appearance, flipped}.pixels(drawing).value();
}

TEST(NSGraphicsContext, FillsARectangleFromTheLowerLeft)
{
    const auto pixels = drawn([](auto& context) { context.fillRect(NSMakeRect(1, 2, 3, 4), *red()); });
    EXPECT_EQ(inkOf(pixels), (Ink{1, 10, 4, 14}));
    EXPECT_EQ(amountOfInk(pixels), 12);
    EXPECT_EQ(pixel(pixels, 2, 12), kRed);
}

TEST(NSGraphicsContext, AlignsARectangleToWholePixels)
{
    for (const auto flipped : {Flipped::No, Flipped::Yes}) {
        (void)drawn(
            [](NSGraphicsContext& context) {
                EXPECT_EQ(context.alignedToPixels({{1.3, 2.6}, {3.2, 4.4}}), NSMakeRect(1, 3, 4, 4));
                // Never nothing.
                EXPECT_EQ(context.alignedToPixels({{1.3, 2.6}, {0.2, 0.1}}).size, NSMakeSize(1, 1));
                EXPECT_EQ(context.alignedToPixels({{1.3, 2.6}, {0, 4}}), NSMakeRect(1.3, 2.6, 0, 4));
                context.scale(2, 2);
                EXPECT_EQ(context.alignedToPixels({{1.3, 2.6}, {0.2, 0.9}}), NSMakeRect(1.5, 2.5, 0.5, 1));
                EXPECT_EQ(context.wholePixels(0.7), 0.5);
                EXPECT_EQ(context.wholePixels(0.1), 0.5);
                EXPECT_EQ(context.wholePixels(0), 0);
            },
            flipped);
    }
}

TEST(NSGraphicsContext, LeavesRectanglesOfADocumentAsTheyAre)
{
    const auto pdf = DrawingSurface{{16, 16}}.PDFRepresentation([](NSGraphicsContext& context) {
        EXPECT_EQ(context.alignedToPixels({{1.3, 2.6}, {3.2, 4.4}}), NSMakeRect(1.3, 2.6, 3.2, 4.4));
        EXPECT_EQ(context.wholePixels(0.7), 0.7);
    });
    EXPECT_TRUE(pdf);
}

TEST(NSGraphicsContext, FillsARectangleFromTheUpperLeftWhenFlipped)
{
    const auto pixels = drawn(
        [](auto& context) {
            EXPECT_TRUE(context.isFlipped());
            context.fillRect(NSMakeRect(1, 2, 3, 4), *red());
        },
        Flipped::Yes);
    EXPECT_EQ(inkOf(pixels), (Ink{1, 2, 4, 6}));
}

TEST(NSGraphicsContext, ResolvesDynamicColoursInItsAppearance)
{
    const auto draw = [](NSGraphicsContext& context) {
        context.fillRect(NSMakeRect(0, 0, 16, 16), *NSColor::textBackgroundColor());
    };
    EXPECT_EQ(pixel(drawn(draw), 8, 8), 0xffffffffU);
    EXPECT_EQ(pixel(drawn(draw, Flipped::No, NSAppearance::Dark), 8, 8), 0xff1e1e1eU);
}

TEST(NSGraphicsContext, SmoothsEdges)
{
    const auto pixels = drawn([](auto& context) { context.fillRect(NSMakeRect(4, 4, 2.5, 1), *red()); });
    EXPECT_NEAR(pixel(pixels, 6, 11) >> 24U, 128, 1);
}

TEST(NSGraphicsContext, MovesAndScalesUntilTheStateIsRestored)
{
    const auto pixels = drawn(
        [](NSGraphicsContext& context) {
            {
                const GraphicsState state(context);
                context.translate(2, 3);
                context.scale(2, 3);
                context.fillRect(NSMakeRect(1, 1, 1, 1), *red());
            }
            context.fillRect(NSMakeRect(0, 0, 1, 1), *red());
        },
        Flipped::Yes);
    EXPECT_EQ(amountOfInk(pixels), 7);
    EXPECT_EQ(pixel(pixels, 0, 0), kRed);
    EXPECT_EQ(pixel(pixels, 4, 6), kRed);
    EXPECT_EQ(pixel(pixels, 5, 8), kRed);
}

TEST(NSGraphicsContext, ShowsNothingOutsideOfTheClip)
{
    const auto pixels = drawn([](NSGraphicsContext& context) {
        const GraphicsState state(context);
        context.clipToRect(NSMakeRect(0, 0, 8, 8));
        context.clipToRect(NSMakeRect(4, 4, 8, 8));
        context.fillRect(NSMakeRect(0, 0, 16, 16), *red());
    });
    EXPECT_EQ(inkOf(pixels), (Ink{4, 8, 8, 12}));
}

TEST(NSGraphicsContext, ShowsNothingInAnEmptyClip)
{
    const auto pixels = drawn([](NSGraphicsContext& context) {
        context.clipToRect(NSMakeRect(4, 4, 0, 4));
        context.fillRect(NSMakeRect(0, 0, 16, 16), *red());
    });
    EXPECT_EQ(inkOf(pixels), Ink{});
}

TEST(NSGraphicsContext, IgnoresRestoringWithoutASavedState)
{
    const auto pixels = drawn([](NSGraphicsContext& context) {
        context.restoreGraphicsState();
        context.fillRect(NSMakeRect(0, 0, 4, 4), *red());
        context.saveGraphicsState();
    });
    EXPECT_EQ(inkOf(pixels), (Ink{0, 12, 4, 16}));
}

TEST(NSGraphicsContext, FillsByTheWindingRule)
{
    auto frame = NSBezierPath::bezierPathWithRect(NSMakeRect(0, 0, 16, 16));
    frame.appendBezierPath(NSBezierPath::bezierPathWithRect(NSMakeRect(4, 4, 8, 8)));
    EXPECT_EQ(amountOfInk(drawn([&](auto& context) { context.fillPath(frame, *red()); })), 256);
    frame.setWindingRule(NSWindingRule::EvenOdd);
    const auto pixels = drawn([&](auto& context) { context.fillPath(frame, *red()); });
    EXPECT_EQ(amountOfInk(pixels), 192);
    EXPECT_EQ(pixel(pixels, 8, 8), 0U);
}

// A clip is the inside of a rectangle whatever was filled before it.
TEST(NSGraphicsContext, ClipsAfterAnEvenOddPath)
{
    auto frame = NSBezierPath::bezierPathWithRect(NSMakeRect(0, 0, 2, 2));
    frame.setWindingRule(NSWindingRule::EvenOdd);
    const auto pixels = drawn([&](NSGraphicsContext& context) {
        context.fillPath(frame, *red());
        context.clipToRect(NSMakeRect(0, 0, 4, 4));
        context.fillRect(NSMakeRect(0, 0, 16, 16), *red());
    });
    EXPECT_EQ(inkOf(pixels), (Ink{0, 12, 4, 16}));
}

TEST(NSGraphicsContext, StrokesHalfOfTheWidthOnEitherSide)
{
    NSBezierPath line;
    line.moveToPoint({4, 8});
    line.lineToPoint({12, 8});
    line.setLineWidth(2);
    const auto ink = [&] { return inkOf(drawn([&](auto& context) { context.strokePath(line, *red()); })); };
    EXPECT_EQ(ink(), (Ink{4, 7, 12, 9}));
    line.setLineCapStyle(NSLineCapStyle::Square);
    EXPECT_EQ(ink(), (Ink{3, 7, 13, 9}));
}

TEST(NSGraphicsContext, RoundsCapsAndJoins)
{
    NSBezierPath corner;
    corner.moveToPoint({4, 4});
    corner.lineToPoint({12, 4});
    corner.lineToPoint({12, 12});
    corner.setLineWidth(4);
    const auto pixels = [&] { return drawn([&](auto& context) { context.strokePath(corner, *red()); }); };
    // Two arms of 32, of which 4 lie on each other. The outer corner, at (14, 2), is the pixel (13, 13).
    EXPECT_EQ(pixel(pixels(), 13, 13), kRed);
    EXPECT_EQ(amountOfInk(pixels()), 60 + 4);
    corner.setLineJoinStyle(NSLineJoinStyle::Bevel);
    EXPECT_NEAR(amountOfInk(pixels()), 60 + 2, 0.1);
    corner.setLineJoinStyle(NSLineJoinStyle::Round);
    EXPECT_NEAR(amountOfInk(pixels()), 60 + M_PI, 0.1);
    corner.setLineCapStyle(NSLineCapStyle::Round);
    EXPECT_NEAR(amountOfInk(pixels()), 60 + M_PI + 4 * M_PI, 0.5);
}

TEST(NSGraphicsContext, StrokesAnOvalInItsRectangle)
{
    const auto pixels
        = drawn([](auto& context) { context.strokeOvalInRect(NSMakeRect(2, 2, 12, 12), 2, *red()); });
    EXPECT_EQ(inkOf(pixels), (Ink{1, 1, 15, 15}));
    EXPECT_EQ(pixel(pixels, 8, 8), 0U);
    EXPECT_NEAR(amountOfInk(pixels), M_PI * (49 - 25), 0.5);
}

TEST(NSGraphicsContext, DrawsNothingWithAPattern)
{
    const auto unknown = NSColor::colorWithCatalogName(u"None", u"none", nullptr);
    const auto pixels = drawn([&](NSGraphicsContext& context) {
        context.fillRect(NSMakeRect(0, 0, 16, 16), *unknown);
        context.strokeOvalInRect(NSMakeRect(2, 2, 12, 12), 2, *unknown);
    });
    EXPECT_EQ(inkOf(pixels), Ink{});
}

TEST(NSGraphicsContext, DrawsNothingAtPlacesThatAreNoNumbers)
{
    const auto nothing = std::nan("");
    const auto pixels = drawn([&](NSGraphicsContext& context) {
        NSBezierPath path;
        path.moveToPoint({0, 0});
        path.lineToPoint({16, nothing});
        path.lineToPoint({16, 0});
        context.fillPath(path, *red());
        context.fillRect(NSMakeRect(nothing, 0, 16, 16), *red());
        context.fillRect(NSMakeRect(0, 0, kInfinity, 16), *red());
        for (const double width : {0.0, -1.0, nothing, kInfinity})
            context.strokeOvalInRect(NSMakeRect(2, 2, 12, 12), width, *red());
        for (const double factor : {0.0, nothing, kInfinity, 1e300}) {
            const GraphicsState state(context);
            context.scale(1, factor);
            context.fillRect(NSMakeRect(0, 0, 16, 16), *red());
        }
        for (const double distance : {nothing, kInfinity}) {
            const GraphicsState state(context);
            context.translate(distance, 0);
            context.fillRect(NSMakeRect(0, 0, 16, 16), *red());
        }
    });
    EXPECT_EQ(inkOf(pixels), Ink{});
}

// Without a limit the library's coordinates turn round, and nothing or something else is filled.
TEST(NSGraphicsContext, FillsWhatReachesFarBeyondTheSurface)
{
    const auto pixels
        = drawn([](auto& context) { context.fillRect(NSMakeRect(-3e9, -3e9, 6e9 + 8, 6e9), *red()); });
    EXPECT_EQ(amountOfInk(pixels), 256);
    const auto edge = drawn([](auto& context) { context.fillRect(NSMakeRect(8, 4, 1e12, 1e12), *red()); });
    EXPECT_EQ(inkOf(edge), (Ink{8, 0, 16, 12}));
}

} // namespace

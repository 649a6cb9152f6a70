#include "platform/drawing/SystemSymbols.h"

#include "platform/drawing/NSImage.h"
#include "tests/drawing/Ink.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;
constexpr std::uint32_t kBlue = 0xff0000ff;

NSColor::Ref red()
{
    return NSColor::colorWithRed(1, 0, 0, 1);
}

NSColor::Ref blue()
{
    return NSColor::colorWithRed(0, 0, 1, 1);
}

BitmapPixels symbol(std::u16string_view name, const std::vector<NSColor::Ref>& palette, double scale,
                    NSAppearance appearance = NSAppearance::Light)
{
    const auto image = NSImage::imageWithSystemSymbolName(name, palette);
    const auto draw
        = [&](NSGraphicsContext& context) { image->drawInRect(NSMakeRect(0, 0, 18, 18), context); };
    return DrawingSurface{{18, 18}, appearance}.pixels(draw, scale).value();
}

TEST(SystemSymbols, AreKnownByName)
{
    for (const auto* name : {u"checkmark.circle.fill", u"circle"}) {
        const auto image = NSImage::imageWithSystemSymbolName(name, {red()});
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->size(), (NSSize{18, 18}));
    }
    EXPECT_EQ(NSImage::imageWithSystemSymbolName(u"square", {red()}), nullptr);
    EXPECT_EQ(NSImage::imageWithSystemSymbolName(u"", {red()}), nullptr);
}

TEST(SystemSymbols, DrawAMarkOnADisc)
{
    for (const std::size_t scale : {1U, 2U, 3U, 8U}) {
        const auto pixels
            = symbol(u"checkmark.circle.fill", {red(), blue(), blue()}, static_cast<double>(scale));
        EXPECT_EQ(inkOf(pixels), (Ink{scale, scale, 17 * scale, 17 * scale})) << scale;
        // The mark is below the middle of the left half and above that of the right.
        EXPECT_EQ(pixel(pixels, 3 * scale, 9 * scale), kBlue) << scale;
        EXPECT_EQ(pixel(pixels, 9 * scale, 4 * scale), kBlue) << scale;
        EXPECT_EQ(pixel(pixels, 9 * scale, 14 * scale + scale / 2), kBlue) << scale;
    }
    EXPECT_EQ(pixel(symbol(u"checkmark.circle.fill", {red(), blue()}, 8), 64, 95), kRed);
}

TEST(SystemSymbols, DrawAMarkWithAShortArmAndALongOne)
{
    const auto pixels = symbol(u"checkmark.circle.fill", {red(), nullptr}, 8);
    const auto ink = inkOf(pixels);
    // Within the disc, from 8 to 136, and nearly in its middle.
    EXPECT_GT(ink.left, 30U);
    EXPECT_LT(ink.right, 144U - 30U);
    EXPECT_NEAR(static_cast<double>(ink.left + ink.right) / 2, 72, 4);
    EXPECT_NEAR(static_cast<double>(ink.top + ink.bottom) / 2, 72, 4);
    const auto middleOfColumn = [&](std::size_t x) {
        std::size_t sum = 0;
        std::size_t n = 0;
        for (std::size_t y = 0; y < pixels.high; ++y) {
            if (pixel(pixels, x, y) == kRed) {
                sum += y;
                ++n;
            }
        }
        return static_cast<double>(sum) / static_cast<double>(n);
    };
    // Down first, then up beyond where it began.
    EXPECT_GT(middleOfColumn(62), middleOfColumn(ink.left + 4));
    EXPECT_LT(middleOfColumn(ink.right - 5), middleOfColumn(ink.left + 4));
}

TEST(SystemSymbols, DrawARingOfATwelfthOfItsSide)
{
    const auto pixels = symbol(u"circle", {red(), blue()}, 8);
    EXPECT_EQ(inkOf(pixels), (Ink{8, 8, 136, 136}));
    EXPECT_EQ(pixel(pixels, 72, 72), 0U);
    EXPECT_FALSE(hasColor(pixels, kBlue));
    double width = 0;
    for (std::size_t x = 0; x < 72; ++x)
        width += static_cast<double>(pixel(pixels, x, 72) >> 24U) / 255;
    EXPECT_NEAR(width, 12, 0.1);
}

TEST(SystemSymbols, HaveTheColoursOfTheAppearance)
{
    const std::vector palette{NSColor::textBackgroundColor(), NSColor::controlAccentColor(),
                              NSColor::controlAccentColor()};
    const auto light = symbol(u"checkmark.circle.fill", palette, 8);
    const auto dark = symbol(u"checkmark.circle.fill", palette, 8, NSAppearance::Dark);
    EXPECT_EQ(pixel(light, 64, 95), 0xffffffffU);
    EXPECT_EQ(pixel(dark, 64, 95), 0xff1e1e1eU);
    EXPECT_EQ(pixel(light, 72, 20), 0xff007affU);
    EXPECT_EQ(pixel(dark, 72, 20), 0xff007affU);
}

TEST(SystemSymbols, LeaveOutWhatHasNoColour)
{
    EXPECT_EQ(inkOf(symbol(u"circle", {}, 2)), Ink{});
    const auto disc = symbol(u"checkmark.circle.fill", {nullptr, blue()}, 8);
    EXPECT_EQ(pixel(disc, 64, 95), kBlue);
    EXPECT_NEAR(amountOfInk(disc), M_PI * 64 * 64, 10);
}

TEST(SystemSymbols, HaveTheSameOutline)
{
    const auto disc = systemSymbolParts(u"checkmark.circle.fill").front().path.bounds();
    const auto ring = systemSymbolParts(u"circle").front().path;
    EXPECT_NEAR(ring.bounds().size.width + ring.lineWidth(), disc.size.width, 1e-9);
    EXPECT_TRUE(systemSymbolParts(u"none").empty());
}

} // namespace

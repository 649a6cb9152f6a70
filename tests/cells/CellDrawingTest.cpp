// What the cells leave on a surface: where there is ink, and of which colour.

#include "cells/CVLChecklistAttachmentCell.h"
#include "cells/CVLDividerTextAttachmentCell.h"
#include "cells/CVLFileAttachmentCell.h"
#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSTextAttachment.h"
#include "tests/support/HostTextView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <tuple>

namespace {

/// The smallest rectangle of pixels with ink; counted from the upper left corner.
struct Ink {
    std::size_t left = SIZE_MAX;
    std::size_t top = SIZE_MAX;
    std::size_t right = 0;
    std::size_t bottom = 0;

    friend bool operator==(const Ink&, const Ink&) = default;
};

std::uint32_t pixelAt(const BitmapPixels& pixels, std::size_t x, std::size_t y)
{
    return pixels.values.at(y * pixels.wide + x);
}

unsigned alphaOf(std::uint32_t pixel)
{
    return pixel >> 24U;
}

std::optional<Ink> inkOf(const BitmapPixels& pixels)
{
    Ink ink;
    for (std::size_t y = 0; y < pixels.high; ++y) {
        for (std::size_t x = 0; x < pixels.wide; ++x) {
            if (alphaOf(pixelAt(pixels, x, y)) < 16)
                continue;
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                   std::max(ink.bottom, y + 1)};
        }
    }
    return ink.right > 0 ? std::optional(ink) : std::nullopt;
}

BitmapPixels drawn(NSTextAttachmentCell& cell, NSRect frame, NSSize size, double scale = 1,
                   NSAppearance appearance = NSAppearance::Light, Flipped flipped = Flipped::Yes)
{
    HostTextView view(size);
    const auto draw = [&](NSGraphicsContext& context) {
        view.setGraphicsContext(&context);
        cell.drawWithFrame(frame, view);
    };
    const auto pixels = DrawingSurface{size, appearance, flipped}.pixels(draw, scale);
    return pixels.value_or(BitmapPixels());
}

/// The colour with its alpha taken in, as pixels have it.
std::uint32_t pixelOf(const NSColor& color, NSAppearance appearance)
{
    const auto rgba = color.deviceRGBComponents(appearance);
    const auto part
        = [&](double component) { return static_cast<std::uint32_t>(component * rgba->alpha * 255 + 0.5); };
    return static_cast<std::uint32_t>(rgba->alpha * 255 + 0.5) << 24U | part(rgba->red) << 16U
        | part(rgba->green) << 8U | part(rgba->blue);
}

void expectColour(std::uint32_t pixel, const NSColor& color, NSAppearance appearance)
{
    const auto expected = pixelOf(color, appearance);
    for (const auto shift : {0U, 8U, 16U, 24U})
        EXPECT_NEAR(static_cast<int>(pixel >> shift & 0xFFU), static_cast<int>(expected >> shift & 0xFFU), 2)
            << std::hex << pixel << " and " << expected;
}

struct FileCellDrawing : testing::Test {
    void show(const std::u16string& name)
    {
        wrapper->setPreferredFilename(name);
        attachment->setAttachmentCell(cell);
    }

    NSFileWrapper::Ref wrapper = NSFileWrapper::initRegularFileWithContents({});
    std::shared_ptr<NSTextAttachment> attachment = NSTextAttachment::initWithFileWrapper(wrapper);
    std::shared_ptr<CVLFileAttachmentCell> cell = std::make_shared<CVLFileAttachmentCell>();
};

} // namespace

TEST(CellDrawing, OfADividerIsOneLineAcross)
{
    CVLDividerTextAttachmentCell cell;
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const auto pixels = drawn(cell, {{10, 0}, {80, 15}}, {100, 15}, 1, appearance);
        EXPECT_EQ(inkOf(pixels), (Ink{10, 7, 90, 8}));
        expectColour(pixelAt(pixels, 50, 7), *NSColor::tertiaryLabelColor(), appearance);
    }
}

TEST(CellDrawing, OfADividerIsSharpAtEveryScale)
{
    CVLDividerTextAttachmentCell cell;
    EXPECT_EQ(inkOf(drawn(cell, {{0, 0}, {80, 15}}, {80, 15}, 2)), (Ink{0, 14, 160, 16}));
    EXPECT_EQ(inkOf(drawn(cell, {{0, 0.4}, {80, 15}}, {80, 16}, 3)), (Ink{0, 21, 240, 24}));
}

TEST(CellDrawing, OfABoxIsInTheLastTwentyPoints)
{
    for (const auto on : {true, false}) {
        CVLChecklistAttachmentCell cell;
        cell.setOn(on);
        const auto ink = inkOf(drawn(cell, {{0, 0}, {80, 18}}, {80, 18}));
        ASSERT_TRUE(ink);
        EXPECT_GE(ink->left, 60U);
        EXPECT_LE(ink->left, 63U);
        EXPECT_GE(ink->right, 75U);
        EXPECT_LE(ink->right, 78U) << "two points are left free";
        EXPECT_GE(ink->bottom - ink->top, 13U);
    }
}

TEST(CellDrawing, OfATickedBoxIsADiscWithACheckMark)
{
    CVLChecklistAttachmentCell cell;
    cell.setOn(true);
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const auto pixels = drawn(cell, {{0, 0}, {20, 18}}, {20, 18}, 4, appearance);
        expectColour(pixelAt(pixels, 36, 12), *NSColor::controlAccentColor(), appearance);
        const auto mark = pixelOf(*NSColor::textBackgroundColor(), appearance);
        EXPECT_GT(std::ranges::count(pixels.values, mark), 50) << "the mark is in the ground's colour";
    }
}

TEST(CellDrawing, OfAnEmptyBoxIsARing)
{
    CVLChecklistAttachmentCell cell;
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const auto pixels = drawn(cell, {{0, 0}, {20, 18}}, {20, 18}, 4, appearance);
        const auto ink = inkOf(pixels);
        ASSERT_TRUE(ink);
        EXPECT_EQ(alphaOf(pixelAt(pixels, 36, 36)), 0U) << "nothing in the middle";
        expectColour(pixelAt(pixels, 36, ink->top + 3), *NSColor::secondaryLabelColor(), appearance);
    }
}

TEST(CellDrawing, IsUprightWhereverTheOriginIs)
{
    CVLChecklistAttachmentCell cell;
    cell.setOn(true);
    const NSRect frame{{0, 0}, {20, 18}};
    EXPECT_EQ(drawn(cell, frame, frame.size, 2, NSAppearance::Light, Flipped::Yes),
              drawn(cell, frame, frame.size, 2, NSAppearance::Light, Flipped::No));
}

TEST_F(FileCellDrawing, HasTheIconAboveTheName)
{
    show(u"A file with a name.zip");
    const auto size = cell->cellSize();
    for (const auto flipped : {Flipped::Yes, Flipped::No}) {
        const auto pixels = drawn(*cell, {{0, 0}, size}, size, 1, NSAppearance::Light, flipped);
        const auto ink = inkOf(pixels);
        ASSERT_TRUE(ink);
        EXPECT_LT(ink->top, 4U);
        EXPECT_GT(ink->bottom, 38U);
        EXPECT_LT(ink->left, 4U) << "the name is as wide as the cell";
        EXPECT_GT(ink->right, pixels.wide - 5);
        const auto middle = pixels.wide / 2;
        EXPECT_GT(alphaOf(pixelAt(pixels, middle, 16)), 200U) << "the icon is in the middle";
        EXPECT_EQ(alphaOf(pixelAt(pixels, 2, 16)), 0U) << "and beside it there is nothing";
    }
}

TEST_F(FileCellDrawing, StaysWithinAFrameThatIsTooNarrowForTheName)
{
    show(u"A file with a name that is much too long for the frame.zip");
    const auto height = cell->cellSize().height;
    const auto pixels = drawn(*cell, {{20, 0}, {80, height}}, {120, height});
    const auto ink = inkOf(pixels);
    ASSERT_TRUE(ink);
    EXPECT_GE(ink->left, 19U);
    EXPECT_LE(ink->right, 101U);
    EXPECT_GT(ink->right - ink->left, 50U);
}

TEST_F(FileCellDrawing, DrawsWithoutAFile)
{
    attachment->setFileWrapper(nullptr);
    attachment->setAttachmentCell(cell);
    EXPECT_TRUE(inkOf(drawn(*cell, {{0, 0}, {32, 50}}, {32, 50})));
}

TEST_F(FileCellDrawing, IsOfVectorsInDocuments)
{
    show(u"Report.zip");
    const auto size = cell->cellSize();
    HostTextView view(size);
    const auto draw = [&](NSGraphicsContext& context) {
        view.setGraphicsContext(&context);
        cell->drawWithFrame({{0, 0}, size}, view);
    };
    const DrawingSurface surface{size, NSAppearance::Light, Flipped::Yes};
    const auto picture = surface.SVGRepresentation(draw);
    ASSERT_TRUE(picture);
    EXPECT_NE(picture->bytes.find("<path"), std::string::npos);
    EXPECT_EQ(picture->bytes.find("<image"), std::string::npos);
    const auto document = surface.PDFRepresentation(draw);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->bytes.substr(0, 5), "%PDF-");
}

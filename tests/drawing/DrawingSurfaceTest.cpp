#include "platform/drawing/DrawingSurface.h"

#include "platform/drawing/NSBezierPath.h"
#include "platform/text/NSColor.h"
#include "tests/drawing/Ink.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

namespace {

void drawSquare(NSGraphicsContext& context)
{
    context.fillRect(NSMakeRect(2, 1, 4, 3), *NSColor::colorWithRed(0, 0, 1, 1));
}

struct DocumentDeleter {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

std::unique_ptr<xmlDoc, DocumentDeleter> parsed(const NSData& data)
{
    return std::unique_ptr<xmlDoc, DocumentDeleter>(
        xmlReadMemory(data.bytes.data(), static_cast<int>(data.bytes.size()), "drawing.svg", nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR));
}

std::string property(const xmlNode* node, const char* name)
{
    auto* value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
    const std::string text = value ? reinterpret_cast<const char*>(value) : "";
    xmlFree(value);
    return text;
}

std::size_t count(std::string_view text, std::string_view part)
{
    std::size_t found = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

std::size_t pageCount(const NSData& pdf)
{
    return count(pdf.bytes, "/Type /Page") - count(pdf.bytes, "/Type /Pages");
}

TEST(DrawingSurface, HasAsManyPixelsToAPointAsItIsTold)
{
    for (const std::size_t scale : {1U, 2U, 3U}) {
        const auto pixels = DrawingSurface{{10, 8}}.pixels(drawSquare, static_cast<double>(scale));
        ASSERT_TRUE(pixels) << scale;
        EXPECT_EQ(pixels->wide, 10 * scale);
        EXPECT_EQ(pixels->high, 8 * scale);
        EXPECT_EQ(inkOf(*pixels), (Ink{2 * scale, 4 * scale, 6 * scale, 7 * scale}));
        EXPECT_EQ(pixel(*pixels, 3 * scale, 5 * scale), 0xff0000ffU);
    }
}

// The origin is exact; what the last row has too much is at the other side.
TEST(DrawingSurface, RoundsPixelsUpAwayFromTheOrigin)
{
    const auto below = DrawingSurface{{8, 8.5}}.pixels(drawSquare);
    EXPECT_EQ(below->high, 9U);
    EXPECT_EQ(inkOf(*below), (Ink{2, 5, 6, 8}));
    const auto above = DrawingSurface{{8, 8.5}, NSAppearance::Light, Flipped::Yes}.pixels(drawSquare);
    EXPECT_EQ(inkOf(*above), (Ink{2, 1, 6, 4}));
}

TEST(DrawingSurface, WritesPNGFilesOfTheRightSize)
{
    const auto png = DrawingSurface{{10, 8}}.PNGRepresentation(drawSquare, 2);
    ASSERT_TRUE(png);
    ASSERT_GT(png->bytes.size(), 24U);
    EXPECT_EQ(png->bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(png->bytes.substr(12, 12), std::string("IHDR\0\0\0\x14\0\0\0\x10", 12));
}

TEST(DrawingSurface, WritesPDFFilesOfOnePage)
{
    const auto pdf = DrawingSurface{{10, 8}}.PDFRepresentation(drawSquare);
    ASSERT_TRUE(pdf);
    EXPECT_EQ(pdf->bytes.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf->bytes.find("%%EOF"), std::string::npos);
    EXPECT_EQ(pageCount(*pdf), 1U);
    EXPECT_NE(pdf->bytes.find("/MediaBox [ 0 0 10 8 ]"), std::string::npos);
}

TEST(DrawingSurface, WritesPDFFilesOfSeveralPages)
{
    const std::vector<NSDrawing> pages(3, drawSquare);
    const auto pdf = DrawingSurface{{10, 8}}.PDFRepresentation(pages);
    ASSERT_TRUE(pdf);
    EXPECT_EQ(pageCount(*pdf), 3U);
}

TEST(DrawingSurface, WritesSVGFilesWithPathsInPoints)
{
    const auto svg = DrawingSurface{{10, 8}}.SVGRepresentation(drawSquare);
    ASSERT_TRUE(svg);
    const auto document = parsed(*svg);
    ASSERT_TRUE(document);
    const auto* root = xmlDocGetRootElement(document.get());
    EXPECT_STREQ(reinterpret_cast<const char*>(root->name), "svg");
    EXPECT_EQ(property(root, "width"), "10pt");
    EXPECT_EQ(property(root, "height"), "8pt");
    EXPECT_EQ(property(root, "viewBox"), "0 0 10 8");
    // Rows count from the top: the square reaches from 8 - 4 to 8 - 1.
    EXPECT_NE(svg->bytes.find("d=\"M 2 7 L 6 7 L 6 4 L 2 4 Z M 2 7 \""), std::string::npos) << svg->bytes;
    EXPECT_NE(svg->bytes.find("rgb(0%,0%,100%)"), std::string::npos);
}

TEST(DrawingSurface, GivesVectorsTheAppearanceToo)
{
    const auto draw
        = [](NSGraphicsContext& context) { context.fillRect(NSMakeRect(0, 0, 4, 4), *NSColor::textColor()); };
    const auto light = DrawingSurface{{8, 8}, NSAppearance::Light}.SVGRepresentation(draw);
    const auto dark = DrawingSurface{{8, 8}, NSAppearance::Dark}.SVGRepresentation(draw);
    EXPECT_NE(light->bytes.find("rgb(0%,0%,0%)"), std::string::npos);
    EXPECT_NE(dark->bytes.find("rgb(100%,100%,100%)"), std::string::npos);
}

TEST(DrawingSurface, RefusesSizesThatNothingHas)
{
    const auto infinity = std::numeric_limits<double>::infinity();
    for (const double side : {0.0, -1.0, std::nan(""), infinity, 1e9}) {
        const DrawingSurface surface{{side, 8}};
        NSError error;
        EXPECT_FALSE(surface.pixels(drawSquare, 1, &error)) << side;
        EXPECT_EQ(error.domain(), DrawingErrorDomain);
        EXPECT_EQ(error.code(), static_cast<int>(DrawingError::SizeRefused));
        EXPECT_FALSE(surface.PNGRepresentation(drawSquare)) << side;
        EXPECT_FALSE(surface.PDFRepresentation(drawSquare)) << side;
        EXPECT_FALSE(surface.SVGRepresentation(drawSquare)) << side;
    }
    for (const double scale : {0.0, -1.0, std::nan(""), infinity, 1e6})
        EXPECT_FALSE((DrawingSurface{{8, 8}}.pixels(drawSquare, scale))) << scale;
    EXPECT_FALSE((DrawingSurface{{-8, -8}}.pixels(drawSquare, -1)));
}

TEST(DrawingSurface, RefusesMorePixelsThanItsLimits)
{
    const auto side = static_cast<double>(DrawingSurface::kMaximumSide);
    EXPECT_TRUE((DrawingSurface{{side, 1}}.pixels(drawSquare)));
    EXPECT_FALSE((DrawingSurface{{side + 1, 1}}.pixels(drawSquare)));
    EXPECT_FALSE((DrawingSurface{{side, side}}.pixels(drawSquare)));
}

TEST(DrawingSurface, RefusesPagesLargerThanTheFormatsLimitAndDocumentsWithoutPages)
{
    NSError error;
    EXPECT_TRUE((DrawingSurface{{14400, 8}}.PDFRepresentation(drawSquare)));
    EXPECT_FALSE((DrawingSurface{{14401, 8}}.PDFRepresentation(drawSquare, &error)));
    EXPECT_EQ(error.code(), static_cast<int>(DrawingError::SizeRefused));
    EXPECT_FALSE((DrawingSurface{{8, 8}}.PDFRepresentation(std::vector<NSDrawing>{})));
    EXPECT_TRUE((DrawingSurface{{100000, 8}}.SVGRepresentation(drawSquare)));
    EXPECT_FALSE((DrawingSurface{{100001, 8}}.SVGRepresentation(drawSquare)));
}

TEST(DrawingSurface, LetsThroughWhatTheDrawingThrows)
{
    const auto draw = [](NSGraphicsContext&) { throw std::runtime_error("no"); };
    EXPECT_THROW((void)(DrawingSurface{{8, 8}}.pixels(draw)), std::runtime_error);
    EXPECT_THROW((void)(DrawingSurface{{8, 8}}.PDFRepresentation(draw)), std::runtime_error);
    EXPECT_THROW((void)(DrawingSurface{{8, 8}}.SVGRepresentation(draw)), std::runtime_error);
}

} // namespace

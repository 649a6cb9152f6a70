#include "platform/drawing/NSWorkspace.h"

#include "platform/drawing/DocumentIcon.h"
#include "platform/types/TypeDeclarations.h"
#include "platform/types/UTType.h"
#include "tests/drawing/Ink.h"

#include <gtest/gtest.h>

#include <map>

namespace {

NSImage::Ref iconOf(std::string_view identifier)
{
    return NSWorkspace::iconForContentType(UTType::typeWithIdentifier(identifier).value());
}

BitmapPixels drawn(const NSImage& icon, double scale = 1, NSAppearance appearance = NSAppearance::Light)
{
    return DrawingSurface{{32, 32}, appearance}
        .pixels([&](NSGraphicsContext& context) { icon.drawInRect(NSMakeRect(0, 0, 32, 32), context); },
                scale)
        .value();
}

BitmapPixels drawn(std::string_view identifier, double scale = 1,
                   NSAppearance appearance = NSAppearance::Light)
{
    return drawn(*iconOf(identifier), scale, appearance);
}

TEST(NSWorkspace, HasIconsOf32Points)
{
    for (const auto* identifier : {"public.folder", "public.plain-text"}) {
        ASSERT_NE(iconOf(identifier), nullptr);
        EXPECT_EQ(iconOf(identifier)->size(), (NSSize{32, 32}));
    }
}

TEST(NSWorkspace, DrawsDocumentsAsPages)
{
    for (const std::size_t scale : {1U, 2U, 3U, 8U}) {
        const auto pixels = drawn("public.data", static_cast<double>(scale));
        EXPECT_EQ(inkOf(pixels), (Ink{4 * scale, scale, 28 * scale, 31 * scale})) << scale;
        EXPECT_EQ(pixel(pixels, 16 * scale, 16 * scale), 0xffffffffU);
        // The upper right corner is folded over, and what it hides away.
        EXPECT_EQ(pixel(pixels, 27 * scale, 2 * scale), 0U);
        const auto fold = pixel(pixels, 22 * scale + scale / 2, 6 * scale + scale / 2);
        EXPECT_EQ(fold >> 24U, 255U);
        EXPECT_NEAR(fold & 0xffU, 0.86 * 255, 1);
    }
}

TEST(NSWorkspace, DimsPagesInTheDark)
{
    EXPECT_EQ(pixel(drawn("public.data", 2, NSAppearance::Dark), 32, 32), 0xffe6e6e6U);
    EXPECT_EQ(pixel(drawn("public.data", 2, NSAppearance::Light), 32, 32), 0xffffffffU);
}

TEST(NSWorkspace, DrawsFoldersAsFolders)
{
    for (const auto* identifier : {"public.folder", "public.directory"}) {
        const auto pixels = drawn(identifier, 2);
        const auto ink = inkOf(pixels);
        EXPECT_EQ(ink, (Ink{4, 8, 60, 54}));
        // The tab is at the left.
        EXPECT_NE(pixel(pixels, 16, 10), 0U);
        EXPECT_EQ(pixel(pixels, 40, 10), 0U);
        // The back is darker than the front.
        EXPECT_LT(pixel(pixels, 16, 16) & 0xffU, pixel(pixels, 32, 40) & 0xffU);
    }
}

TEST(NSWorkspace, DrawsPackagesAsDocuments)
{
    for (const auto* identifier : {"com.tessel.corvel.note", "com.apple.rtfd", "com.apple.package"})
        EXPECT_EQ(inkOf(drawn(identifier)), (Ink{4, 1, 28, 31})) << identifier;
}

TEST(NSWorkspace, ShowsTheExtensionOnABandOfTheKindsColour)
{
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const auto pixels = drawn("com.adobe.pdf", 8, appearance);
        // Red from the page's left side to its right, with white letters in the middle.
        EXPECT_EQ(pixel(pixels, 5 * 8, 28 * 8), 0xffff3b30U);
        EXPECT_EQ(pixel(pixels, 27 * 8, 28 * 8), 0xffff3b30U);
        std::size_t white = 0;
        for (std::size_t y = 22 * 8; y < 31 * 8; ++y) {
            for (std::size_t x = 5 * 8; x < 27 * 8; ++x)
                white += pixel(pixels, x, y) == 0xffffffffU ? 1U : 0U;
        }
        EXPECT_GT(white, 500U);
    }
}

TEST(NSWorkspace, ShowsNoBandWithoutAnExtension)
{
    EXPECT_EQ(pixel(drawn("public.image", 8), 5 * 8, 28 * 8), 0xffffffffU);
    EXPECT_EQ(pixel(drawn("public.png", 8), 5 * 8, 28 * 8), 0xff59adc4U);
}

TEST(NSWorkspace, ShowsExtensionsInCapitals)
{
    const auto& kind = iconKindOfType(UTType::typeWithIdentifier("public.data").value());
    const auto withExtension = [&](std::string_view extension) {
        return DrawingSurface{{32, 32}}
            .pixels([&](NSGraphicsContext& context) { drawDocumentIcon(kind, extension, context); }, 4)
            .value();
    };
    EXPECT_EQ(withExtension("abc7"), withExtension("ABC7"));
    EXPECT_NE(withExtension("abc7"), withExtension("abd7"));
}

TEST(NSWorkspace, KeepsLongAndStrangeExtensionsOnThePage)
{
    const auto& kind = iconKindOfType(UTType::typeWithIdentifier("public.data").value());
    for (const auto& extension : {std::string(1000, 'w'), std::string("a\0b", 3), std::string("\xff\xfe"),
                                  std::string("\n\n\n"), std::string("\u202eabc"), std::string("ﷺﷺﷺﷺ")}) {
        const auto pixels
            = DrawingSurface{{32, 32}}
                  .pixels([&](NSGraphicsContext& context) { drawDocumentIcon(kind, extension, context); }, 4)
                  .value();
        EXPECT_EQ(inkOf(pixels), (Ink{16, 4, 112, 124}));
        // No letter leaves the band.
        EXPECT_EQ(pixel(pixels, 64, 84), 0xffffffffU);
    }
}

TEST(NSWorkspace, TellsKindsApart)
{
    const auto identifiers
        = {"public.folder",         "public.text",           "public.image",       "public.movie",
           "public.audio",          "public.archive",        "public.spreadsheet", "public.presentation",
           "public.message",        "public.source-code",    "public.font",        "public.contact",
           "public.calendar-event", "public.database",       "public.executable",  "public.data",
           "com.adobe.pdf",         "com.tessel.corvel.note"};
    for (const double scale : {1.0, 2.0}) {
        for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
            std::map<std::vector<std::uint32_t>, std::string> seen;
            for (const auto* identifier : identifiers) {
                const auto [place, isNew]
                    = seen.emplace(drawn(identifier, scale, appearance).values, identifier);
                EXPECT_TRUE(isNew) << identifier << " looks like " << place->second;
            }
        }
    }
}

TEST(NSWorkspace, HasAnIconForEveryType)
{
    for (const auto& declaration : typeDeclarations()) {
        const auto icon = iconOf(declaration.identifier);
        ASSERT_NE(icon, nullptr) << declaration.identifier;
        EXPECT_GT(amountOfInk(drawn(*icon)), 300) << declaration.identifier;
    }
}

TEST(NSWorkspace, KeepsIconsAsShapesInDocuments)
{
    const auto draw = [](NSGraphicsContext& context) {
        iconOf("public.png")->drawInRect(NSMakeRect(0, 0, 32, 32), context);
    };
    const auto svg = DrawingSurface{{32, 32}}.SVGRepresentation(draw);
    ASSERT_TRUE(svg);
    EXPECT_NE(svg->bytes.find("<path"), std::string::npos);
    EXPECT_EQ(svg->bytes.find("<image"), std::string::npos);
}

} // namespace

// What of a text is seen on a sheet: where there is ink, and of which colour.

#include "platform/layout/TextSheet.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/drawing/NSImage.h"
#include "platform/text/NSShadow.h"
#include "tests/drawing/Ink.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;

class TextSheetInk : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }
};

NSColor::Ref red()
{
    return NSColor::colorWithRed(1, 0, 0, 1);
}

/// Clear, without margins, so that all there is is ink of the text.
BitmapPixels drawn(const NSAttributedString& text, double width = 200, double scale = 1,
                   const AttachmentImage& image = {})
{
    const TextSheet sheet(text, {.width = width, .margins = {}, .backgroundColor = nullptr, .image = image});
    return sheet.surface().pixels(sheet.drawing(), scale).value();
}

NSMutableAttributedString with(std::u16string_view name, const NSAny& value, std::u16string_view characters)
{
    auto text = styledText(characters);
    text.addAttribute(name, value, {0, text.length()});
    return text;
}

TEST_F(TextSheetInk, IsAsHighAsItsTextAndMargins)
{
    const TextSheet sheet(styledText(u"a\na").copy(), {.width = 300, .margins = {10, 20, 30, 40}});
    EXPECT_EQ(sheet.surface().size.width, 300);
    // 87.68 in whole points.
    EXPECT_EQ(sheet.surface().size.height, 88);
    EXPECT_EQ(sheet.layoutManager().usedRect().size.width, 240);
}

TEST_F(TextSheetInk, BeginsBehindTheMargins)
{
    const TextSheet sheet(styledText(u"MM").copy(),
                          {.width = 300, .margins = {10, 50, 30, 40}, .backgroundColor = nullptr});
    const auto ink = inkOf(sheet.surface().pixels(sheet.drawing()).value());
    EXPECT_GE(ink.left, 50U);
    EXPECT_LE(ink.left, 54U);
    EXPECT_GE(ink.top, 10U);
    EXPECT_LT(static_cast<double>(ink.bottom), 10 + kAscent + 2);
}

TEST_F(TextSheetInk, DrawsPlainTextInTheColourOfTextLightOrDark)
{
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const TextSheet sheet(styledText(u"MMM").copy(), {.width = 100, .appearance = appearance});
        const auto pixels = sheet.surface().pixels(sheet.drawing()).value();
        const auto paper = pixel(pixels, 0, 0) & 0xFFU;
        auto darkest = paper;
        auto lightest = paper;
        for (const auto value : pixels.values) {
            darkest = std::min(darkest, value & 0xFFU);
            lightest = std::max(lightest, value & 0xFFU);
        }
        EXPECT_EQ(paper > 128, appearance == NSAppearance::Light);
        EXPECT_GT(lightest - darkest, 150U);
    }
}

TEST_F(TextSheetInk, FillsBackgroundsAsHighAsTheLine)
{
    NSMutableParagraphStyle style;
    style.setMinimumLineHeight(50);
    auto text = styledText(u"aaa", style);
    text.addAttribute(NSBackgroundColorAttributeName, red(), {1, 1});
    const auto pixels = drawn(text.copy());
    EXPECT_EQ(pixel(pixels, 18, 0), kRed);
    EXPECT_EQ(pixel(pixels, 18, 49), kRed);
    EXPECT_EQ(pixel(pixels, 11, 1), 0U);
    EXPECT_EQ(pixel(pixels, 27, 1), 0U);
}

TEST_F(TextSheetInk, FillsBackgroundsOfBothDirections)
{
    // Two letters at the right of the column, the first of which stands furthest to the right.
    auto text = styledText(u"\x05E9\x05E9");
    text.addAttribute(NSBackgroundColorAttributeName, red(), {0, 1});
    const auto pixels = drawn(text.copy());
    EXPECT_EQ(pixel(pixels, 197, 1), kRed);
    EXPECT_EQ(pixel(pixels, 180, 1), 0U);
}

TEST_F(TextSheetInk, DrawsLinksUnderlinedInTheLinkColour)
{
    const auto text = with(NSLinkAttributeName, NSAny(u"https://example.org"), u"a a");
    const auto rgba = *NSColor::linkColor()->deviceRGBComponents();
    const auto blue = static_cast<std::uint32_t>(rgba.blue * 255 + 0.5);
    const auto pixels = drawn(text.copy(), 200, 4);
    // Below the blank there is nothing but the line.
    auto isUnderlined = false;
    const auto x = static_cast<std::size_t>((kLetter + kBlank / 2) * 4);
    for (std::size_t y = 0; y < pixels.high; ++y) {
        const auto value = pixel(pixels, x, y);
        isUnderlined = isUnderlined || (value >> 24U == 255 && (value & 0xFFU) == blue);
    }
    EXPECT_TRUE(isUnderlined);
}

TEST_F(TextSheetInk, RaisesAndLowersLettersAndMakesThemSmaller)
{
    const auto plain = inkOf(drawn(styledText(u"xM").copy(), 200, 4));
    const auto half = [](const BitmapPixels& pixels) {
        BitmapPixels right = pixels;
        for (std::size_t i = 0; i < right.values.size(); ++i)
            right.values[i] = i % right.wide < static_cast<std::size_t>(kLetter * 4) ? 0 : right.values[i];
        return inkOf(right);
    };
    auto raised = styledText(u"xM");
    raised.addAttribute(NSSuperscriptAttributeName, NSAny(1), {1, 1});
    auto lowered = styledText(u"xM");
    lowered.addAttribute(NSSuperscriptAttributeName, NSAny(-1), {1, 1});
    const auto up = half(drawn(raised.copy(), 200, 4));
    const auto down = half(drawn(lowered.copy(), 200, 4));
    EXPECT_LT(up.height(), plain.height() * 8 / 10);
    EXPECT_GT(down.bottom, up.bottom + 20);
}

TEST_F(TextSheetInk, SlantsLettersInAFaceOfTheFamily)
{
    const auto slanted = with(NSObliquenessAttributeName, NSAny(0.2), u"lll");
    EXPECT_NE(drawn(slanted.copy()), drawn(styledText(u"lll").copy()));
}

TEST_F(TextSheetInk, DrawsShadowsOfTheLettersThatHaveThem)
{
    const auto shadow = [](NSSize offset, double blur) {
        return NSAny(std::make_shared<const NSShadow>(offset, blur, red()));
    };
    const auto plain = inkOf(drawn(styledText(u"MM").copy()));
    auto text = with(NSShadowAttributeName, shadow({40, -5}, 0), u"MM");
    const auto both = drawn(text.copy());
    EXPECT_EQ(inkOf(both).right, plain.right + 40);
    EXPECT_EQ(inkOf(both).bottom, std::min<std::size_t>(plain.bottom + 5, both.high));
    EXPECT_TRUE(hasColor(both, kRed));
    text.removeAttribute(NSShadowAttributeName, {1, 1});
    const auto one = inkOf(drawn(text.copy()));
    EXPECT_LT(one.right, plain.right + 40 - 10);
    const auto blurred = drawn(with(NSShadowAttributeName, shadow({40, 0}, 8), u"MM").copy());
    EXPECT_GT(inkOf(blurred).right, plain.right + 40 + 2);
    EXPECT_FALSE(hasColor(blurred, kRed));
}

TEST_F(TextSheetInk, StandsShadowsWithoutMeasure)
{
    for (const auto value : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300}) {
        const NSAny shadow(std::make_shared<const NSShadow>(NSSize{value, value}, value, red()));
        EXPECT_GT(amountOfInk(drawn(with(NSShadowAttributeName, shadow, u"MM").copy())), 10);
    }
}

TEST_F(TextSheetInk, DrawsCellsWhereTheyStand)
{
    const auto box = CVLChecklistTextAttachment::init();
    const auto ink = inkOf(drawn(box->attributedString()), 100);
    EXPECT_LE(ink.right, 18U);
    EXPECT_GE(ink.width(), 14U);
}

TEST_F(TextSheetInk, DrawsPicturesOfTheProvider)
{
    const auto image = NSImage::imageWithSize({30, 20}, Flipped::Yes, [](NSGraphicsContext& context) {
        context.fillRect({{}, {30, 20}}, *red());
    });
    const auto text
        = NSAttributedString::attributedStringWithAttachment(NSAny(std::make_shared<NSTextAttachment>()));
    const auto pixels = drawn(text, 200, 1, [&](const NSTextAttachment&) { return image; });
    EXPECT_EQ(inkOf(pixels), (Ink{0, 0, 30, 20}));
    EXPECT_TRUE(hasColor(pixels, kRed));
}

TEST_F(TextSheetInk, DrawsAnEmptyBoxForWhatCannotBeShown)
{
    const auto text
        = NSAttributedString::attributedStringWithAttachment(NSAny(std::make_shared<NSTextAttachment>()));
    const auto pixels = drawn(text);
    EXPECT_EQ(inkOf(pixels), (Ink{0, 0, 16, 16}));
    EXPECT_EQ(pixel(pixels, 8, 8), 0U);
}

TEST_F(TextSheetInk, ClipsALineThatIsTooLong)
{
    NSMutableParagraphStyle style;
    style.setLineBreakMode(NSLineBreakMode::Clipping);
    style.setTailIndent(60);
    EXPECT_EQ(inkOf(drawn(styledText(u"MMMMMMMMMM", style).copy())).right, 60U);
}

TEST_F(TextSheetInk, GivesPDFAndSVGToo)
{
    const TextSheet sheet(styledText(u"aaa").copy(), {.width = 100});
    EXPECT_TRUE(sheet.surface().PDFRepresentation(sheet.drawing())->bytes.starts_with("%PDF"));
    EXPECT_NE(sheet.surface().SVGRepresentation(sheet.drawing())->bytes.find("<svg"), std::string::npos);
}

TEST_F(TextSheetInk, RefusesASheetThatIsTooLong)
{
    const TextSheet sheet(styledText(std::u16string(2000, u'\n')).copy(), {.width = 100});
    NSError error;
    EXPECT_FALSE(sheet.surface().PNGRepresentation(sheet.drawing(), 1, &error));
    EXPECT_EQ(error.code(), static_cast<NSInteger>(DrawingError::SizeRefused));
}

TEST_F(TextSheetInk, IsASheetWithoutText)
{
    const TextSheet sheet(NSAttributedString(), {.width = 100, .margins = {}});
    EXPECT_EQ(sheet.surface().size, NSMakeSize(100, 1));
    EXPECT_TRUE(sheet.surface().pixels(sheet.drawing()));
}

} // namespace

#include "platform/drawing/NSStringDrawing.h"

#include "tests/drawing/Ink.h"
#include "tests/drawing/SampleText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;
constexpr std::uint32_t kBlue = 0xff0000ff;

/// The font whose measures the tests know from its file, 2048 units to the em; null where it is not
/// installed.
NSFont::Ref knownFont(double size)
{
    return NSFont::fontWithName(u"DejaVuSans", size);
}

TEST(NSStringDrawing, MeasuresAsTheFontsFileSays)
{
    if (!knownFont(20))
        GTEST_SKIP() << "DejaVu Sans is not installed";
    // "a" advances by 1255 units; lines are 1901 above and 483 below the baseline.
    const auto size = sizeOfAttributedString(textWithFont(u"aaaa", knownFont(20)));
    EXPECT_NEAR(size.width, 4 * 20 * 1255.0 / 2048, 0.01);
    EXPECT_NEAR(size.height, 20 * 2384.0 / 2048, 0.01);
    const auto fraction = sizeOfAttributedString(textWithFont(u"a", knownFont(7.3)));
    EXPECT_NEAR(fraction.width, 7.3 * 1255.0 / 2048, 0.01);
}

TEST(NSStringDrawing, MeasuresLinesAsTheTextHasThem)
{
    const auto one = sizeOfAttributedString(systemText(u"wide line"));
    EXPECT_GT(one.width, 0);
    for (const auto* text : {u"wide line\nab", u"ab\rwide line", u"ab\r\nwide line",
                             u"wide line\x2028"
                             u"ab",
                             u"ab\x2029wide line", u"wide line\n"}) {
        const auto two = sizeOfAttributedString(systemText(text));
        EXPECT_EQ(two.width, one.width);
        EXPECT_EQ(two.height, 2 * one.height);
    }
    EXPECT_EQ(sizeOfAttributedString(systemText(u"\n\n")).height, 3 * one.height);
    EXPECT_EQ(sizeOfAttributedString(NSAttributedString()), NSSize{});
}

TEST(NSStringDrawing, GivesEmptyLinesTheHeightOfTheirFont)
{
    NSMutableAttributedString text(textWithFont(u"a\n", NSFont::systemFontOfSize(10)));
    text.appendAttributedString(textWithFont(u"\n", NSFont::systemFontOfSize(30)));
    text.appendAttributedString(textWithFont(u"a", NSFont::systemFontOfSize(10)));
    const auto small = sizeOfAttributedString(systemText(u"a", 10)).height;
    const auto large = sizeOfAttributedString(systemText(u"a", 30)).height;
    EXPECT_NEAR(sizeOfAttributedString(text).height, 2 * small + large, 0.01);
}

TEST(NSStringDrawing, HasItsInkWithinItsSizeAtEveryScale)
{
    for (const auto* characters : {u"Report 3.txt", u"Äg|Q", u"汉字", u"שלום", u"WWWW"}) {
        const auto text = systemText(characters, 17);
        const auto size = sizeOfAttributedString(text);
        for (const double scale : {1.0, 2.0, 3.0}) {
            const auto ink = inkOf(drawn(text, {{10, 10}, size}, scale), 40);
            EXPECT_GE(static_cast<double>(ink.left), 10 * scale - 1);
            EXPECT_LE(static_cast<double>(ink.right), (10 + size.width) * scale + 1);
            EXPECT_GE(static_cast<double>(ink.top), 10 * scale - 1);
            EXPECT_LE(static_cast<double>(ink.bottom), (10 + size.height) * scale + 1);
            EXPECT_GT(static_cast<double>(ink.width()), size.width * scale * 0.8);
        }
    }
}

TEST(NSStringDrawing, StandsUprightFlippedOrNot)
{
    const auto text = systemText(u"Lg");
    const auto flipped = drawn(text, NSMakeRect(20, 10, 100, 30), 1, Flipped::Yes);
    const auto plain = drawn(text, NSMakeRect(20, 60, 100, 30), 1, Flipped::No);
    EXPECT_GT(amountOfInk(flipped), 5);
    EXPECT_EQ(flipped, plain);
}

// Fonts are kept for one scale: text must not be drawn at that of the text before it.
TEST(NSStringDrawing, FollowsAScaleThatChangesWithinADrawing)
{
    const auto text = systemText(u"M", 10);
    const auto pixels
        = DrawingSurface{kSheet, NSAppearance::Light, Flipped::Yes}.pixels([&](NSGraphicsContext& context) {
              drawAttributedString(text, NSMakeRect(0, 0, 50, 50), context);
              context.clipToRect(NSMakeRect(50, 0, 200, 100));
              context.scale(4, 4);
              drawAttributedString(text, NSMakeRect(20, 0, 50, 50), context);
          });
    auto ink = inkOf(*pixels, 40);
    EXPECT_GE(ink.height(), 27U);
    ink = inkOf(drawn(text), 40);
    EXPECT_LE(ink.height(), 9U);
}

TEST(NSStringDrawing, IsBlackInHelveticaByDefault)
{
    const NSAttributedString plain(u"Hello");
    const auto pixels = drawn(plain, {{}, kSheet}, 4);
    EXPECT_TRUE(hasColor(pixels, 0xff000000));
    EXPECT_EQ(pixels, drawn(textWithFont(u"Hello", NSFont::fontWithName(u"Helvetica", 12)), {{}, kSheet}, 4));
}

TEST(NSStringDrawing, HasItsForegroundColourInTheAppearance)
{
    auto text = systemText(u"██");
    setColor(text, NSColor::textColor(), {0, 1});
    setColor(text, red(), {1, 1});
    const auto light = drawn(text, {{}, kSheet}, 2);
    EXPECT_TRUE(hasColor(light, 0xff000000) && hasColor(light, kRed));
    const auto dark = drawn(text, {{}, kSheet}, 2, Flipped::Yes, NSAppearance::Dark);
    EXPECT_TRUE(hasColor(dark, 0xffffffff) && hasColor(dark, kRed));
    EXPECT_FALSE(hasColor(dark, 0xff000000));
}

TEST(NSStringDrawing, IsAsClearAsItsColour)
{
    auto text = systemText(u"█");
    setColor(text, NSColor::colorWithRed(1, 1, 1, 0.2), {0, 1});
    EXPECT_TRUE(hasColor(drawn(text, {{}, kSheet}, 4), 0x33333333));
    setColor(text, NSColor::clearColor(), {0, 1});
    EXPECT_EQ(inkOf(drawn(text)), Ink{});
}

TEST(NSStringDrawing, FillsTheBackgroundOfItsRunOnly)
{
    auto text = systemText(u"   ", 20);
    text.addAttribute(NSBackgroundColorAttributeName, red(), {1, 1});
    const auto size = sizeOfAttributedString(text);
    const auto ink = inkOf(drawn(text), 128);
    EXPECT_NEAR(static_cast<double>(ink.left), size.width / 3, 1);
    EXPECT_NEAR(static_cast<double>(ink.right), size.width * 2 / 3, 1);
    EXPECT_NEAR(static_cast<double>(ink.height()), size.height, 1);
}

/// The rows with a pure blue pixel, eight to a point, of a red letter with a blue line.
struct Rows {
    std::size_t top = 0;
    std::size_t bottom = 0;
};

Rows blueRows(std::u16string_view style, std::u16string_view color, int number)
{
    auto text = systemText(u"H", 40);
    setColor(text, red(), {0, 1});
    text.addAttribute(style, NSAny(number), {0, 1});
    text.addAttribute(color, blue(), {0, 1});
    const auto pixels = drawn(text, {{}, kSheet}, 8);
    Rows rows{pixels.high, 0};
    for (std::size_t i = 0; i < pixels.values.size(); ++i) {
        if (pixels.values[i] != kBlue)
            continue;
        rows.top = std::min(rows.top, i / pixels.wide);
        rows.bottom = i / pixels.wide + 1;
    }
    return rows;
}

TEST(NSStringDrawing, UnderlinesBelowTheBaselineAndStrikesThroughAboveIt)
{
    const auto letter = inkOf(drawn(systemText(u"H", 40), {{}, kSheet}, 8));
    const auto single = blueRows(NSUnderlineStyleAttributeName, NSUnderlineColorAttributeName, 1);
    EXPECT_GE(single.top, letter.bottom);
    EXPECT_GT(single.bottom, single.top);
    const auto twofold = blueRows(NSUnderlineStyleAttributeName, NSUnderlineColorAttributeName, 9);
    EXPECT_GT(twofold.bottom - twofold.top, single.bottom - single.top);
    const auto strike = blueRows(NSStrikethroughStyleAttributeName, NSStrikethroughColorAttributeName, 1);
    EXPECT_GT(strike.bottom, strike.top);
    EXPECT_GT(strike.top, letter.top);
    EXPECT_LT(strike.bottom, letter.bottom);
}

// The number's higher bits are a pattern, which alone is no line.
TEST(NSStringDrawing, DrawsNoLineWhenItsKindIsNone)
{
    for (const int number : {0, 0x100}) {
        EXPECT_EQ(blueRows(NSUnderlineStyleAttributeName, NSUnderlineColorAttributeName, number).bottom, 0U);
        EXPECT_EQ(
            blueRows(NSStrikethroughStyleAttributeName, NSStrikethroughColorAttributeName, number).bottom,
            0U);
    }
}

TEST(NSStringDrawing, SpacesAndRaisesLetters)
{
    auto text = systemText(u"aaaa");
    const auto plain = sizeOfAttributedString(text);
    text.addAttribute(NSKernAttributeName, NSAny(5.0), {0, 4});
    EXPECT_NEAR(sizeOfAttributedString(text).width, plain.width + 15, 0.01);
    auto raised = systemText(u"aa");
    raised.addAttribute(NSBaselineOffsetAttributeName, NSAny(8.0), {1, 1});
    EXPECT_NEAR(sizeOfAttributedString(raised).height, plain.height + 8, 0.01);
}

TEST(NSStringDrawing, StandsWhereItsAlignmentSays)
{
    struct Case {
        const char16_t* characters;
        NSTextAlignment alignment;
        NSWritingDirection direction;
        // 0 at the left, 1 in the middle, 2 at the right.
        int side;
    };

    constexpr auto kNatural = NSWritingDirection::Natural;
    for (const auto& [characters, alignment, direction, side] : {
             Case{u"abc", NSTextAlignment::Natural, kNatural, 0},
             Case{u"abc", NSTextAlignment::Left, kNatural, 0},
             Case{u"abc", NSTextAlignment::Center, kNatural, 1},
             Case{u"abc", NSTextAlignment::Right, kNatural, 2},
             Case{u"abc", NSTextAlignment::Justified, kNatural, 0},
             Case{u"שלום", NSTextAlignment::Natural, kNatural, 2},
             Case{u"שלום", NSTextAlignment::Left, kNatural, 0},
             Case{u"שלום", NSTextAlignment::Right, kNatural, 2},
             Case{u"שלום", NSTextAlignment::Justified, kNatural, 2},
             Case{u"שלום", NSTextAlignment::Center, kNatural, 1},
             Case{u"abc", NSTextAlignment::Natural, NSWritingDirection::RightToLeft, 2},
             Case{u"abc", NSTextAlignment::Left, NSWritingDirection::RightToLeft, 0},
             Case{u"שלום", NSTextAlignment::Natural, NSWritingDirection::LeftToRight, 0},
             Case{u"123", NSTextAlignment::Natural, kNatural, 0},
         }) {
        for (const auto mode :
             {NSLineBreakMode::WordWrapping, NSLineBreakMode::Clipping, NSLineBreakMode::TruncatingMiddle}) {
            auto text = systemText(characters);
            setStyle(text, mode, alignment, direction);
            const auto ink = inkOf(drawn(text, NSMakeRect(50, 0, 200, 40)), 40);
            const auto room = 200 - sizeOfAttributedString(text).width;
            EXPECT_NEAR(static_cast<double>(ink.left), 50 + room * side / 2, 2.5)
                << static_cast<int>(alignment) << static_cast<int>(direction) << static_cast<int>(mode);
        }
    }
}

/// Many letters, of which the second is red and the last but one blue. An ellipsis has the colour of what it
/// stands for, which may begin with the first.
NSMutableAttributedString longText(NSUInteger length, NSLineBreakMode mode,
                                   NSTextAlignment alignment = NSTextAlignment::Natural)
{
    auto text = systemText(std::u16string(length, u'█'));
    setColor(text, red(), {1, 1});
    setColor(text, blue(), {length - 2, 1});
    setStyle(text, mode, alignment);
    return text;
}

TEST(NSStringDrawing, TruncatesWhereTheStyleSays)
{
    struct Case {
        NSLineBreakMode mode;
        bool keepsStart;
        bool keepsEnd;
    };

    // The second length is beyond what is laid out of a line.
    for (const NSUInteger length : {100U, 100000U}) {
        for (const auto& [mode, keepsStart, keepsEnd] : {
                 Case{NSLineBreakMode::TruncatingHead, false, true},
                 Case{NSLineBreakMode::TruncatingMiddle, true, true},
                 Case{NSLineBreakMode::TruncatingTail, true, false},
                 Case{NSLineBreakMode::Clipping, true, false},
             }) {
            const auto pixels = drawn(longText(length, mode), NSMakeRect(20, 20, 120, 30), 2);
            EXPECT_EQ(hasColor(pixels, kRed), keepsStart) << length << " " << static_cast<int>(mode);
            EXPECT_EQ(hasColor(pixels, kBlue), keepsEnd) << length << " " << static_cast<int>(mode);
            const auto ink = inkOf(pixels, 40);
            EXPECT_GE(ink.left, 39U);
            EXPECT_LE(ink.right, 281U);
            EXPECT_GT(ink.right, 255U);
        }
    }
}

TEST(NSStringDrawing, AlignsWhatIsTruncated)
{
    for (const auto mode : {NSLineBreakMode::TruncatingHead, NSLineBreakMode::TruncatingMiddle}) {
        const auto left = drawn(longText(100, mode, NSTextAlignment::Left), NSMakeRect(20, 20, 127, 30), 2);
        const auto right = drawn(longText(100, mode, NSTextAlignment::Right), NSMakeRect(20, 20, 127, 30), 2);
        EXPECT_NEAR(static_cast<double>(inkOf(left, 40).left), 40,
                    mode == NSLineBreakMode::TruncatingHead ? 6 : 1);
        EXPECT_NEAR(static_cast<double>(inkOf(right, 40).right), 294, 1);
        // The ellipsis takes no more room than it needs.
        EXPECT_LT(inkOf(left, 40).right, 293U);
    }
}

TEST(NSStringDrawing, IsNotTruncatedInItsOwnWidth)
{
    for (const auto mode : {NSLineBreakMode::TruncatingHead, NSLineBreakMode::TruncatingMiddle,
                            NSLineBreakMode::TruncatingTail, NSLineBreakMode::WordWrapping}) {
        auto text = systemText(u"Some name 12.txt");
        setStyle(text, mode);
        const auto size = sizeOfAttributedString(text);
        EXPECT_EQ(sizeOfAttributedString(text, size.width), size);
        EXPECT_EQ(drawn(text, {{}, {size.width, 50}}), drawn(text, {{}, {200, 50}}));
    }
}

TEST(NSStringDrawing, BreaksLinesBetweenWordsAndWithinWordsThatAreTooLong)
{
    auto text = systemText(u"aaaa bbbb");
    const auto size = sizeOfAttributedString(text);
    EXPECT_EQ(sizeOfAttributedString(text, size.width * 0.7).height, 2 * size.height);
    EXPECT_EQ(sizeOfAttributedString(text, std::nan("")), size);
    const auto word = systemText(u"aaaaaaaaa");
    EXPECT_EQ(sizeOfAttributedString(word, sizeOfAttributedString(word).width * 0.4).height, 3 * size.height);
}

TEST(NSStringDrawing, BreaksLinesAnywhereWhenTheStyleSaysSo)
{
    auto text = systemText(u"aa bbb");
    const auto width = sizeOfAttributedString(systemText(u"aa bb")).width + 1;
    const auto firstLine = [&](NSLineBreakMode mode) {
        setStyle(text, mode);
        const auto height = sizeOfAttributedString(text).height;
        EXPECT_EQ(sizeOfAttributedString(text, width).height, 2 * height);
        return inkOf(drawn(text, {{}, {width, height}}), 40).width();
    };
    EXPECT_GT(firstLine(NSLineBreakMode::CharWrapping), firstLine(NSLineBreakMode::WordWrapping));
}

TEST(NSStringDrawing, DrawsNoLineThatBeginsBelowTheRectangle)
{
    auto wrapped = systemText(u"a a a a a a a a a a");
    const auto lines = systemText(u"a\na\na\na\na\na\na");
    const auto height = sizeOfAttributedString(systemText(u"a")).height;
    for (const auto& text : {NSAttributedString(wrapped), NSAttributedString(lines)}) {
        const auto ink = inkOf(drawn(text, NSMakeRect(0, 0, 8, 1.5 * height)));
        EXPECT_GT(static_cast<double>(ink.bottom), height);
        EXPECT_LE(static_cast<double>(ink.bottom), 2 * height + 1);
    }
}

TEST(NSStringDrawing, ClipsToTheWidthOfTheRectangle)
{
    auto text = systemText(u"████████████████████");
    for (const auto alignment : {NSTextAlignment::Left, NSTextAlignment::Center, NSTextAlignment::Right}) {
        setStyle(text, NSLineBreakMode::Clipping, alignment);
        const auto ink = inkOf(drawn(text, NSMakeRect(20, 0, 30, 30)));
        EXPECT_EQ(ink.left, 20U);
        EXPECT_EQ(ink.right, 50U);
    }
}

TEST(NSStringDrawing, LeavesOutAttachments)
{
    EXPECT_EQ(sizeOfAttributedString(systemText(u"a\xfffc"
                                                u"b"))
                  .width,
              sizeOfAttributedString(systemText(u"ab")).width);
}

TEST(NSStringDrawing, DrawsNothingInARectangleWithoutArea)
{
    const auto infinity = std::numeric_limits<double>::infinity();
    for (const double side : {0.0, -1.0, std::nan(""), infinity}) {
        EXPECT_EQ(inkOf(drawn(systemText(u"abc"), NSMakeRect(0, 0, side, 20))), Ink{});
        EXPECT_EQ(inkOf(drawn(systemText(u"abc"), NSMakeRect(0, 0, 20, side))), Ink{});
    }
    EXPECT_EQ(inkOf(drawn(systemText(u"abc"), NSMakeRect(std::nan(""), 0, 20, 20))), Ink{});
}

TEST(NSStringDrawing, KeepsTextAsTextInDocuments)
{
    const auto draw = [](NSGraphicsContext& context) {
        drawAttributedString(systemText(u"Hello"), NSMakeRect(0, 0, 100, 20), context);
    };
    const auto pdf = DrawingSurface{{100, 20}}.PDFRepresentation(draw);
    EXPECT_NE(pdf->bytes.find("/Type /Font"), std::string::npos);
    const auto svg = DrawingSurface{{100, 20}}.SVGRepresentation(draw);
    EXPECT_NE(svg->bytes.find("glyph"), std::string::npos);
}

} // namespace

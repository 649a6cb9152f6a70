// Documents that are made to hurt: whatever the bytes are, reading ends, within memory and time in
// proportion.

#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"
#include "tests/rtf/RandomRTF.h"

#include <gmock/gmock.h>

#include <functional>
#include <random>
#include <string>
#include <string_view>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

NSAttributedString read(const std::string& rtf)
{
    return Formats::initWithRTF({rtf}).value_or(NSAttributedString(u"nothing"));
}

std::string textOf(const std::string& rtf)
{
    return UTF8FromUTF16(read(rtf).string());
}

std::string repeated(std::string_view piece, std::size_t times)
{
    std::string text;
    for (; times > 0; --times)
        text += piece;
    return text;
}

NSParagraphStyle::Ref styleAtStart(const NSAttributedString& text)
{
    return text.attribute(NSParagraphStyleAttributeName, 0).object<NSParagraphStyle>();
}

} // namespace

TEST(RTFHostile, NestsGroupsWithoutLimit)
{
    constexpr std::size_t kDepth = 200'000;
    EXPECT_EQ(textOf("{\\rtf1 a" + repeated("{\\b ", kDepth) + "b" + repeated("}", kDepth) + "c}"), "abc");
    EXPECT_EQ(textOf("{\\rtf1 " + repeated("{", kDepth) + "x"), "x");
}

TEST(RTFHostile, KeepsBalanceBeyondTheDeepestState)
{
    const auto depth = kMostRTFStates + 10;
    const auto text = read("{\\rtf1 " + repeated("{", depth) + "\\ul x" + repeated("}", depth) + "y}z");
    EXPECT_EQ(text.string(), u"xy");
    EXPECT_FALSE(text.attribute(NSUnderlineStyleAttributeName, 1));
}

TEST(RTFHostile, BoundsTabs)
{
    const auto text = read("{\\rtf1\\pard" + repeated("\\tx1", 100'000) + " x}");
    EXPECT_EQ(styleAtStart(text)->tabStops().size(), kMostRTFTabs);
}

TEST(RTFHostile, BoundsTheTabsOfAllStyles)
{
    std::string document = "{\\rtf1\\pard" + repeated("\\tx1", kMostRTFTabs);
    for (std::size_t style = 1; style <= 2 * kMostRTFTabsOfStyles / kMostRTFTabs; ++style)
        document += "\\li" + std::to_string(style) + " x\\par";
    const auto text = read(document + "}");
    const auto last
        = text.attribute(NSParagraphStyleAttributeName, text.length() - 1).object<NSParagraphStyle>();
    EXPECT_EQ(styleAtStart(text)->tabStops().size(), kMostRTFTabs);
    EXPECT_TRUE(last->tabStops().empty());
}

TEST(RTFHostile, BoundsColours)
{
    const auto text = read("{\\rtf1{\\colortbl" + repeated(";", 1'000'000) + "}\\cf999999 x}");
    EXPECT_EQ(text.string(), u"x");
}

TEST(RTFHostile, BoundsColumns)
{
    const auto text = read("{\\rtf1\\trowd" + repeated("\\cellx1", 100'000) + "\\pard\\intbl "
                           + repeated("x\\cell ", 5'000) + "\\row}");
    EXPECT_EQ(text.length(), 10'000U);
    const auto cell
        = std::dynamic_pointer_cast<const NSTextTableBlock>(styleAtStart(text)->textBlocks().at(0));
    EXPECT_EQ(cell->table()->numberOfColumns(), kMostRTFColumns);
}

TEST(RTFHostile, SharesDefinitionsBetweenRows)
{
    // A definition of many cells, and rows by the thousand that have no definition of their own.
    const auto text = read("{\\rtf1\\trowd" + repeated("\\clmrg\\cellx1", 1'000) + "\\pard\\intbl"
                           + repeated("\\clcbpat1 x\\cell\\row", 100'000) + "}");
    EXPECT_EQ(text.length(), 200'000U);
}

TEST(RTFHostile, BoundsTheDepthOfTables)
{
    std::string document = "{\\rtf1";
    for (int depth = 1; depth < 500; ++depth)
        document += "\\pard\\intbl\\itap" + std::to_string(depth) + " x\\par";
    const auto text = read(document + "}");
    const auto last
        = text.attribute(NSParagraphStyleAttributeName, text.length() - 1).object<NSParagraphStyle>();
    EXPECT_EQ(last->textBlocks().size(), kMostRTFTableDepth);
}

TEST(RTFHostile, TakesNumbersOfAnySize)
{
    for (const auto* const word : {"fs",           "f",           "cf",        "cb",
                                   "li",           "fi",          "ri",        "sl",
                                   "tx",           "u",           "uc",        "up",
                                   "dn",           "super",       "sub",       "expnd",
                                   "expndtw",      "shadx",       "shado",     "shadc",
                                   "ls",           "ilvl",        "itap",      "cellx",
                                   "clpadl",       "paperw",      "deftab",    "bin",
                                   "ulstyle",      "strokewidth", "expansion", "AppleHilightClrSch",
                                   "outlinelevel", "kerning"}) {
        for (const auto* const number :
             {"99999999999999999999", "-99999999999999999999", "2147483647", "-2147483648"})
            EXPECT_TRUE(Formats::initWithRTF(
                {"{\\rtf1\\cocoartf1\\trowd\\pard\\" + std::string(word) + number + " x\\cell\\row y}"}))
                << word << number;
    }
}

TEST(RTFHostile, PassesOverStandInsWithinBounds)
{
    EXPECT_EQ(textOf("{\\rtf1\\uc2000000000\\u65 " + std::string(2'000, 'x') + "}"),
              "A" + std::string(2'000 - kMostRTFStandIns, 'x'));
    EXPECT_EQ(textOf("{\\rtf1\\uc-5\\u65 x}"), "Ax");
}

TEST(RTFHostile, SurvivesFieldsInFields)
{
    const auto fields = [](std::size_t count) {
        return "{\\rtf1 a" + repeated("{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt ", count) + "x";
    };
    EXPECT_EQ(textOf(fields(4'000)), "ax");
    // Beyond the deepest state an instruction is not told from its result.
    EXPECT_EQ(textOf(fields(20'000)), "a");
    EXPECT_EQ(textOf("{\\rtf1" + repeated("{\\field{\\*\\fldinst ", 20'000) + "x"), "");
    EXPECT_EQ(textOf("{\\rtf1{\\fldrslt x}{\\*\\fldinst HYPERLINK \"a\"}y}"), "xy");
}

TEST(RTFHostile, SurvivesWordsAndNamesOfAnyLength)
{
    EXPECT_EQ(textOf("{\\rtf1\\" + std::string(1'000'000, 'a') + " x}"), "x");
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl\\f0 " + std::string(1'000'000, 'a') + ";}x}"), "x");
    EXPECT_EQ(textOf("{\\rtf1{\\info{\\title " + std::string(1'000'000, 'a') + "}}x}"), "x");
}

TEST(RTFHostile, RefusesNothingThatBeginsAsRichText)
{
    std::mt19937 random(7);
    for (int round = 0; round < 3'000; ++round) {
        const auto document = randomRTF(random, 60);
        const auto text = Formats::initWithRTF({document});
        ASSERT_TRUE(text) << document;
        EXPECT_LE(text->length(), document.size());
        const auto again = Formats::RTFFromRange(*text, {0, text->length()});
        ASSERT_TRUE(again && Formats::initWithRTF(*again)) << document;
    }
}

#include "platform/text/ListNumerals.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace {

using Row = std::pair<NSInteger, std::u16string>;

} // namespace

TEST(ListNumerals, CountInDecimals)
{
    for (const auto& [number, text] :
         std::vector<Row>{{0, u"0"},
                          {7, u"7"},
                          {10, u"10"},
                          {-12, u"-12"},
                          {std::numeric_limits<NSInteger>::max(), u"9223372036854775807"},
                          {std::numeric_limits<NSInteger>::min(), u"-9223372036854775808"}})
        EXPECT_EQ(decimalNumeral(number), text);
}

TEST(ListNumerals, CountInOtherBases)
{
    EXPECT_EQ(numeralInBase(8, 8), u"10");
    EXPECT_EQ(numeralInBase(64, 8), u"100");
    EXPECT_EQ(numeralInBase(255, 16), u"ff");
    EXPECT_EQ(numeralInBase(-255, 16), u"-ff");
    EXPECT_EQ(numeralInBase(0, 16), u"0");
}

TEST(ListNumerals, CountInLetters)
{
    for (const auto& [number, text] : std::vector<Row>{{1, u"a"},
                                                       {26, u"z"},
                                                       {27, u"aa"},
                                                       {28, u"ab"},
                                                       {52, u"az"},
                                                       {53, u"ba"},
                                                       {702, u"zz"},
                                                       {703, u"aaa"}})
        EXPECT_EQ(letterNumeral(number), text) << number;
}

TEST(ListNumerals, CountInRomanNumerals)
{
    for (const auto& [number, text] : std::vector<Row>{{1, u"i"},
                                                       {4, u"iv"},
                                                       {9, u"ix"},
                                                       {14, u"xiv"},
                                                       {40, u"xl"},
                                                       {90, u"xc"},
                                                       {400, u"cd"},
                                                       {444, u"cdxliv"},
                                                       {1990, u"mcmxc"},
                                                       {2024, u"mmxxiv"},
                                                       {3999, u"mmmcmxcix"}})
        EXPECT_EQ(romanNumeral(number), text) << number;
}

TEST(ListNumerals, AreDecimalWhereThereIsNoOtherForm)
{
    EXPECT_EQ(letterNumeral(0), u"0");
    EXPECT_EQ(letterNumeral(-3), u"-3");
    EXPECT_EQ(romanNumeral(0), u"0");
    EXPECT_EQ(romanNumeral(-3), u"-3");
    EXPECT_EQ(romanNumeral(4000), u"4000");
}

TEST(ListNumerals, HaveCapitals)
{
    EXPECT_EQ(inCapitals(u"ab-1\u00E9z"), u"AB-1\u00E9Z");
}

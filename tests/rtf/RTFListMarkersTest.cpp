#include "platform/rtf/RTFListMarkers.h"

#include "platform/text/NSTextList.h"

#include <gtest/gtest.h>

#include <array>

TEST(RTFListMarkers, FindsTheMarkerThatAParagraphBeginsWith)
{
    struct Case {
        std::u16string_view paragraph;
        std::size_t length;
    };

    constexpr auto kCases = std::to_array<Case>({
        {u"\t\u2022\titem", 3},
        {u"\t(xviii)\titem", 9},
        {u"\t\titem", 2},
        {u"item", 0},
        {u"\titem", 0},
        {u"\ttwo words\titem", 0},
        {u"\t\uFFFC\titem", 0},
        {u"\tabcdefghijklmnopqrstuvwx\titem", 26},
        {u"\tabcdefghijklmnopqrstuvwxy\titem", 0},
        {u"", 0},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(listMarkerLength(example.paragraph), example.length);
}

TEST(RTFListMarkers, TellsTokensBySignsAndNumbers)
{
    EXPECT_EQ(tokenOfListSign(u'\u2713'), NSTextListMarkerCheck);
    EXPECT_EQ(tokenOfListSign(u'\u25A1'), NSTextListMarkerBox);
    EXPECT_EQ(tokenOfListSign(u'\uF0B7'), NSTextListMarkerDisc);
    EXPECT_FALSE(tokenOfListSign(u'x'));
    EXPECT_FALSE(tokenOfListSign(0));
    EXPECT_EQ(tokenOfListNumber(0), NSTextListMarkerDecimal);
    EXPECT_EQ(tokenOfListNumber(4), NSTextListMarkerLowercaseAlpha);
    EXPECT_EQ(tokenOfListNumber(kNoMarker), NSTextListMarkerNone);
    EXPECT_EQ(tokenOfListNumber(77), NSTextListMarkerDecimal);
}

TEST(RTFListMarkers, KnowsTheMarkersOfFormats)
{
    EXPECT_EQ(listMarkerOfFormat(u"({upper-latin})")->number, 3);
    EXPECT_EQ(listMarkerOfFormat(u"{hyphen}")->sign, u'\u2043');
    EXPECT_EQ(listMarkerOfFormat(u"{octal}")->number, 0);
    EXPECT_FALSE(listMarkerOfFormat(u"plain {text}"));
}

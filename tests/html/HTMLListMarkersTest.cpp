#include "platform/html/HTMLListMarkers.h"

#include <gtest/gtest.h>

namespace {

constexpr std::u16string_view kDecimal = u"{decimal}.";

/// Length and number of the marker that the paragraph begins with.
std::pair<std::size_t, std::optional<NSInteger>> markerOf(std::u16string_view paragraph,
                                                          std::u16string_view format)
{
    const auto marker = listMarkerAtStart(paragraph, NSTextList(std::u16string(format)));
    return marker ? std::pair(marker->length, marker->number) : std::pair(std::size_t{0}, std::nullopt);
}

} // namespace

TEST(HTMLListMarkers, KnowsChecklistsByTheirMarker)
{
    EXPECT_TRUE(isChecklist(NSTextList(std::u16string(NSTextListMarkerCheck))));
    EXPECT_TRUE(isChecklist(NSTextList(std::u16string(NSTextListMarkerCircle))));
    for (const auto format : {NSTextListMarkerDisc, NSTextListMarkerHyphen, kDecimal})
        EXPECT_FALSE(isChecklist(NSTextList(std::u16string(format))));
}

TEST(HTMLListMarkers, KnowsListsThatCount)
{
    for (const auto* format :
         {u"{decimal}.", u"({lower-alpha})", u"{upper-roman}", u"{octal}:", u"{upper-alpha}"})
        EXPECT_TRUE(isOrderedList(NSTextList(format)));
    for (const auto* format : {u"{disc}", u"{hyphen}", u"{check}", u"{box}", u"-", u""})
        EXPECT_FALSE(isOrderedList(NSTextList(format)));
}

TEST(HTMLListMarkers, NamesTheNearestListStyleType)
{
    struct Case {
        std::u16string_view format;
        std::string_view type;
    };

    for (const auto& [format, type] : {
             Case{u"{disc}", "disc"},
             Case{u"{circle}", "circle"},
             Case{u"{square}", "square"},
             Case{u"{hyphen}", "disc"},
             Case{u"{box}", "square"},
             Case{u"{diamond}", "square"},
             Case{u"{check}", "circle"},
             Case{u"{decimal}.", "decimal"},
             Case{u"({decimal})", "decimal"},
             Case{u"{octal}.", "decimal"},
             Case{u"{lower-alpha})", "lower-alpha"},
             Case{u"{lower-latin}", "lower-latin"},
             Case{u"{upper-roman}.", "upper-roman"},
             Case{u"{none}", "none"},
             Case{u"*", "none"},
             Case{u"", "none"},
         })
        EXPECT_EQ(listStyleTypeForMarkerFormat(format), type);
}

TEST(HTMLListMarkers, ReadsKeywordsAndTheLettersOfTypes)
{
    struct Case {
        std::string_view type;
        std::u16string_view format;
    };

    for (const auto& [type, format] : {
             Case{"disc", u"{disc}"},
             Case{"square", u"{square}"},
             Case{"decimal", u"{decimal}."},
             Case{"decimal-leading-zero", u"{decimal}."},
             Case{"1", u"{decimal}."},
             Case{"a", u"{lower-alpha}."},
             Case{"A", u"{upper-alpha}."},
             Case{"i", u"{lower-roman}."},
             Case{"I", u"{upper-roman}."},
         })
        EXPECT_EQ(markerFormatForListStyleType(type), format) << type;
    for (const auto* type : {"", "b", "Disc", "georgian", "inside"})
        EXPECT_EQ(markerFormatForListStyleType(type), std::nullopt) << type;
}

TEST(HTMLListMarkers, FindsTheMarkerThatAParagraphBeginsWith)
{
    struct Case {
        std::u16string_view paragraph;
        std::u16string_view format;
        std::size_t length;
        std::optional<NSInteger> number;
    };

    for (const auto& [paragraph, format, length, number] : {
             Case{u"\t\u2022\tx", u"{disc}", 3, std::nullopt},
             Case{u"\t*\tx", u"{disc}", 3, std::nullopt},
             Case{u"\t7.\tx", u"{decimal}.", 4, 7},
             Case{u"\t123)\tx", u"{disc}", 6, 123},
             Case{u"\t(4)\tx", u"({decimal})", 5, 4},
             Case{u"\txiv.\tx", u"{lower-roman}.", 6, std::nullopt},
             Case{u"\t\u2022\t", u"{disc}", 3, std::nullopt},
         })
        EXPECT_EQ(markerOf(paragraph, format), std::pair(length, number));
}

TEST(HTMLListMarkers, LeavesTextThatOnlyLooksLikeAMarker)
{
    struct Case {
        std::u16string_view paragraph;
        std::u16string_view format;
    };

    for (const auto& [paragraph, format] : {
             Case{u"", u"{disc}"},
             Case{u"x", u"{disc}"},
             Case{u"\u2022\tx", u"{disc}"},
             Case{u"\tword\tx", u"{disc}"},
             Case{u"\t7\tx", u"{disc}"},
             Case{u"\t7.x", u"{decimal}."},
             Case{u"\txiv.\tx", u"{disc}"},
             Case{u"\t1234567890.\tx", u"{disc}"},
             Case{u"\t-------------------------\tx", u"{disc}"},
         })
        EXPECT_EQ(markerOf(paragraph, format).first, 0U);
}

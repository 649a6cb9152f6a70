#include "strings/SearchRanges.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace TSExtensions;

namespace {

using Ranges = std::vector<NSRange>;

TEST(LocalizedStandardRanges, IgnoreCaseAndDiacritics)
{
    EXPECT_EQ(localizedStandardRangesOfString(u"Caf\u00E9, CAFE and cafe\u0301!", u"cafe"),
              (Ranges{{0, 4}, {6, 4}, {15, 5}}));
    EXPECT_EQ(localizedStandardRangesOfString(u"tea", u"cafe"), Ranges());
}

TEST(LocalizedStandardRanges, DoNotOverlap)
{
    EXPECT_EQ(localizedStandardRangesOfString(u"aaaa  ", u"aa"), (Ranges{{0, 2}, {2, 2}}));
}

TEST(LocalizedStandardRanges, LeaveOutALaterOneThatEndsTheText)
{
    EXPECT_EQ(localizedStandardRangesOfString(u"ab", u"ab"), (Ranges{{0, 2}}));
    EXPECT_EQ(localizedStandardRangesOfString(u"xxab", u"ab"), (Ranges{{2, 2}}));
    EXPECT_EQ(localizedStandardRangesOfString(u"abab", u"ab"), (Ranges{{0, 2}}));
    EXPECT_EQ(localizedStandardRangesOfString(u"ababx", u"ab"), (Ranges{{0, 2}, {2, 2}}));
}

TEST(LocalizedStandardRanges, AreBoundByTheTermsOwnLength)
{
    // The end of the match, 1, and the term's two units reach the end of the text; the one unit that would
    // match again is not looked at.
    EXPECT_EQ(localizedStandardRangesOfString(u"\u00E9x\u00E9", u"e\u0301"), (Ranges{{0, 1}}));
    EXPECT_EQ(localizedStandardRangesOfString(u"\u00E9xy\u00E9", u"e\u0301"), (Ranges{{0, 1}, {3, 1}}));
}

TEST(LocalizedStandardRanges, AreNoneForNothing)
{
    EXPECT_EQ(localizedStandardRangesOfString(u"abc", u""), Ranges());
    EXPECT_EQ(localizedStandardRangesOfString(u"", u"a"), Ranges());
    EXPECT_EQ(localizedStandardRangesOfString(u"a", u"abc"), Ranges());
}

TEST(LocalizedStandardRanges, TakeHugeTexts)
{
    const std::u16string text(2'000'000, u'a');
    EXPECT_EQ(localizedStandardRangesOfString(text, u"A").size(), text.size() - 1);
    EXPECT_EQ(localizedStandardRangesOfString(text, text.substr(1) + u"b"), Ranges());
}

TEST(HasPrefixIgnoringWhitespace, TakesThePrefixAsItIs)
{
    EXPECT_TRUE(hasPrefixIgnoringWhitespace(u"- item", u"- "));
    EXPECT_TRUE(hasPrefixIgnoringWhitespace(u"  item", u"  "));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"item", u"- "));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"a- item", u"- "));
}

TEST(HasPrefixIgnoringWhitespace, LooksBehindSpacesAndTabsButNotLineEnds)
{
    EXPECT_TRUE(hasPrefixIgnoringWhitespace(u" \t item", u"item"));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"\nitem", u"item"));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"  \nitem", u"item"));
}

TEST(HasPrefixIgnoringWhitespace, TrimsTheEndToo)
{
    // Without its last space the text is shorter than the prefix.
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u" - ", u"- "));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"abc", u""));
    EXPECT_FALSE(hasPrefixIgnoringWhitespace(u"", u"a"));
}

} // namespace

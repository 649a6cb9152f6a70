#include "platform/foundation/NSStringComparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using enum NSComparisonResult;

constexpr auto kLoosely = NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch;

bool areSame(std::u16string_view one, std::u16string_view other, NSStringCompareOptions options)
{
    return compare(one, other, options) == NSOrderedSame;
}

TEST(NSStringComparison, OptionsHaveThePlatformsNumbers)
{
    EXPECT_EQ(NSCaseInsensitiveSearch, 1U);
    EXPECT_EQ(NSLiteralSearch, 2U);
    EXPECT_EQ(NSBackwardsSearch, 4U);
    EXPECT_EQ(NSDiacriticInsensitiveSearch, 128U);
    EXPECT_EQ(NSWidthInsensitiveSearch, 256U);
}

TEST(NSStringComparison, OrdersByCodeUnits)
{
    EXPECT_EQ(compare(u"a", u"b"), NSOrderedAscending);
    EXPECT_EQ(compare(u"a", u"B"), NSOrderedDescending);
    EXPECT_EQ(compare(u"a", u"a"), NSOrderedSame);
    EXPECT_EQ(compare(u"", u"a"), NSOrderedAscending);
}

TEST(NSStringComparison, TakesCanonicallyEquivalentTextsForTheSameUnlessLiteral)
{
    EXPECT_TRUE(areSame(u"\u00E9", u"e\u0301", 0));
    EXPECT_FALSE(areSame(u"\u00E9", u"e\u0301", NSLiteralSearch));
    EXPECT_TRUE(areSame(u"a\u0316\u0301", u"a\u0301\u0316", 0));
    EXPECT_TRUE(areSame(u"\uAC01", u"\u1100\u1161\u11A8", 0));
}

TEST(NSStringComparison, IgnoresWhatTheOptionsSayAndNothingElse)
{
    EXPECT_TRUE(areSame(u"STRASSE", u"stra\u00DFe", NSCaseInsensitiveSearch));
    EXPECT_FALSE(areSame(u"e", u"\u00E9", NSCaseInsensitiveSearch));
    EXPECT_TRUE(areSame(u"e", u"\u00E9", NSDiacriticInsensitiveSearch));
    EXPECT_FALSE(areSame(u"e", u"\u00C9", NSDiacriticInsensitiveSearch));
    EXPECT_TRUE(areSame(u"ABC", u"\uFF21\uFF22\uFF23", NSWidthInsensitiveSearch));
    EXPECT_TRUE(areSame(u"\u30AC", u"\uFF76\uFF9E", NSWidthInsensitiveSearch));
    EXPECT_FALSE(areSame(u"ABC", u"\uFF21\uFF22\uFF23", NSCaseInsensitiveSearch));
    EXPECT_TRUE(areSame(u"abc", u"\uFF21\u0308\uFF22\uFF23", kLoosely));
}

TEST(NSStringComparison, KeepsMarksThatMakeAnotherLetter)
{
    EXPECT_FALSE(areSame(u"\u304B", u"\u304C", NSDiacriticInsensitiveSearch));
    EXPECT_FALSE(areSame(u"\u0915", u"\u0915\u094D", NSDiacriticInsensitiveSearch));
    EXPECT_TRUE(
        areSame(u"\u0643\u062A\u0628", u"\u0643\u064E\u062A\u064E\u0628", NSDiacriticInsensitiveSearch));
}

TEST(NSStringComparison, FoldsTheTurkicLettersInTheirLocale)
{
    EXPECT_TRUE(compare(u"I", u"i", NSCaseInsensitiveSearch, "en_GB") == NSOrderedSame);
    EXPECT_FALSE(compare(u"I", u"i", NSCaseInsensitiveSearch, "tr_TR") == NSOrderedSame);
    EXPECT_TRUE(compare(u"I", u"\u0131", NSCaseInsensitiveSearch, "tr_TR") == NSOrderedSame);
}

TEST(NSStringComparison, TakesUnpairedSurrogatesAsTheyAre)
{
    const std::u16string lead(1, 0xD83C);
    const std::u16string trail(1, 0xDFFF);
    EXPECT_TRUE(areSame(lead, lead, kLoosely));
    EXPECT_FALSE(areSame(lead, trail, kLoosely));
    EXPECT_FALSE(areSame(trail + lead, lead + trail, kLoosely));
}

TEST(NSStringComparison, IsNotSlowedByEndlessRunsOfMarks)
{
    std::u16string marks = u"a";
    for (int count = 0; count < 500'000; ++count)
        marks += count % 2 ? u'\u0316' : u'\u0301';
    EXPECT_TRUE(areSame(marks, u"A", kLoosely));
    EXPECT_TRUE(areSame(marks, marks, 0));
}

TEST(LocalizedStandardCompare, SortsAsAFileManagerDoes)
{
    const std::vector<std::u16string> sorted
        = {u"", u"\u00E4pfel", u"apple", u"Apple", u"note 2", u"Note 10", u"Note 010x", u"zebra"};
    for (std::size_t one = 0; one + 1 < sorted.size(); ++one)
        for (std::size_t other = one + 1; other < sorted.size(); ++other)
            EXPECT_EQ(localizedStandardCompare(sorted[one], sorted[other], "en_GB"), NSOrderedAscending)
                << one << " " << other;
}

TEST(LocalizedStandardCompare, FollowsTheLocale)
{
    EXPECT_EQ(localizedStandardCompare(u"\u00E4", u"z", "de_DE"), NSOrderedAscending);
    EXPECT_EQ(localizedStandardCompare(u"\u00E4", u"z", "sv_SE"), NSOrderedDescending);
}

TEST(LocalizedStandardCompare, TakesWhatReadsTheSameForTheSame)
{
    EXPECT_EQ(localizedStandardCompare(u"caf\u00E9", u"cafe\u0301"), NSOrderedSame);
    EXPECT_EQ(localizedStandardCompare(u"a", u"A"), NSOrderedAscending);
}

} // namespace

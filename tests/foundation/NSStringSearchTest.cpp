#include "platform/foundation/NSStringSearch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr NSRange kNone{NSNotFound, 0};
constexpr auto kLoosely = NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch;

TEST(RangeOfString, FindsTheFirstOrTheLast)
{
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc"), (NSRange{1, 2}));
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc", NSBackwardsSearch), (NSRange{4, 2}));
    EXPECT_EQ(rangeOfString(u"aaa", u"aa", NSBackwardsSearch), (NSRange{1, 2}));
    EXPECT_EQ(rangeOfString(u"abc", u"x"), kNone);
}

TEST(RangeOfString, DoesNotFindTheEmptyTerm)
{
    EXPECT_EQ(rangeOfString(u"abc", u""), kNone);
    EXPECT_EQ(rangeOfString(u"", u""), kNone);
    EXPECT_EQ(rangeOfString(u"abc", u"\u0301", NSDiacriticInsensitiveSearch), kNone);
}

TEST(RangeOfString, LooksAtItsRangeOnly)
{
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc", 0, NSRange{2, 4}), (NSRange{4, 2}));
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc", 0, NSRange{2, 3}), kNone);
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc", 0, NSRange{99, 1}), kNone);
    EXPECT_EQ(rangeOfString(u"abcabc", u"bc", 0, NSRange{4, NSNotFound}), (NSRange{4, 2}));
}

TEST(RangeOfString, GivesThePlaceInTheSource)
{
    EXPECT_EQ(rangeOfString(u"x stra\u00DFe", u"STRASSE", kLoosely), (NSRange{2, 6}));
    EXPECT_EQ(rangeOfString(u"un cafe\u0301!", u"CAF\u00C9", kLoosely), (NSRange{3, 5}));
    EXPECT_EQ(rangeOfString(u"un caf\u00E9!", u"cafe", kLoosely), (NSRange{3, 4}));
    EXPECT_EQ(rangeOfString(u"\U0001F600 a", u"A", kLoosely), (NSRange{3, 1}));
}

TEST(RangeOfString, NeverCutsACharacterUnlessLiteral)
{
    EXPECT_EQ(rangeOfString(u"e\u0301e", u"e"), (NSRange{2, 1}));
    EXPECT_EQ(rangeOfString(u"e\u0301e", u"e", NSLiteralSearch), (NSRange{0, 1}));
    EXPECT_EQ(rangeOfString(u"stra\u00DFe", u"s", NSCaseInsensitiveSearch | NSBackwardsSearch),
              (NSRange{0, 1}));
    EXPECT_EQ(rangeOfString(u"\uAC01\uAC00", u"\uAC00"), (NSRange{1, 1}));
}

TEST(RangeOfString, FindsUnpairedSurrogatesWhereTheyStandAlone)
{
    const std::u16string lead(1, 0xD83D);
    EXPECT_EQ(rangeOfString(u"\U0001F600" + lead, lead), (NSRange{2, 1}));
}

TEST(NSStringSearch, GoesOnBehindEachMatch)
{
    const NSStringSearch search(u"Cafe caf\u00E9 CAFE\u0301", u"cafe", kLoosely);
    EXPECT_EQ(search.rangeFrom(0), (NSRange{0, 4}));
    EXPECT_EQ(search.rangeFrom(4), (NSRange{5, 4}));
    EXPECT_EQ(search.rangeFrom(9), (NSRange{10, 5}));
    EXPECT_EQ(search.rangeFrom(15), kNone);
    EXPECT_EQ(search.rangeFrom(1'000), kNone);
    EXPECT_EQ(search.lastRange(), (NSRange{10, 5}));
}

TEST(NSStringSearch, TakesOnePassOverHostileTexts)
{
    constexpr std::size_t kLength = 2'000'000;
    const std::u16string text(kLength, u'a');
    EXPECT_EQ(rangeOfString(text, std::u16string(kLength / 2, u'a') + u"b", kLoosely), kNone);
    EXPECT_EQ(rangeOfString(text, text.substr(1), NSLiteralSearch | NSBackwardsSearch),
              (NSRange{1, kLength - 1}));
    // Each candidate ends within a character and is turned down.
    std::u16string accented;
    for (std::size_t count = 0; count < kLength / 20; ++count)
        accented += u"a\u0301";
    EXPECT_EQ(rangeOfString(accented, accented.substr(0, accented.size() / 2) + u"a"), kNone);
}

} // namespace

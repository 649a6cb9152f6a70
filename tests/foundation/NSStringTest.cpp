#include "platform/foundation/NSString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::u16string>;

Strings linesOf(std::u16string_view text)
{
    Strings lines;
    enumerateLines(text, [&lines](std::u16string_view line) {
        lines.emplace_back(line);
        return true;
    });
    return lines;
}

TEST(NSString, KnowsItsPrefixesAndSuffixes)
{
    EXPECT_TRUE(hasPrefix(u"- item", u"- "));
    EXPECT_FALSE(hasPrefix(u"-", u"- "));
    EXPECT_TRUE(hasSuffix(u"a.txt", u".txt"));
    EXPECT_FALSE(hasSuffix(u"txt", u".txt"));
    EXPECT_FALSE(hasPrefix(u"abc", u""));
    EXPECT_FALSE(hasSuffix(u"abc", u""));
    EXPECT_TRUE(hasPrefix(u"abc", u"abc"));
    EXPECT_TRUE(hasSuffix(u"abc", u"abc"));
}

TEST(NSString, ComparesPrefixesAndSuffixesByWholeCharacters)
{
    EXPECT_TRUE(hasPrefix(u"\u00E9t\u00E9", u"e\u0301"));
    EXPECT_TRUE(hasPrefix(u"e\u0301t\u00E9", u"\u00E9"));
    EXPECT_FALSE(hasPrefix(u"e\u0301t\u00E9", u"e"));
    EXPECT_TRUE(hasSuffix(u"\u00E9t\u00E9", u"e\u0301"));
    EXPECT_FALSE(hasSuffix(u"te\u0301", u"\u0301"));
    EXPECT_TRUE(hasSuffix(u"x\U0002F800", u"\u4E3D"));
    EXPECT_TRUE(hasSuffix(u"\U0002F800\U0002F800", u"\u4E3D\u4E3D"));
}

TEST(NSString, SplitsAndJoins)
{
    EXPECT_EQ(componentsSeparatedByString(u"a--b--", u"--"), (Strings{u"a", u"b", u""}));
    EXPECT_EQ(componentsSeparatedByString(u"", u","), (Strings{u""}));
    EXPECT_EQ(componentsSeparatedByString(u"abc", u""), (Strings{u"abc"}));
    EXPECT_EQ(componentsSeparatedByCharactersInSet(u"a\r\nb", NSCharacterSet::newlineCharacterSet()),
              (Strings{u"a", u"", u"b"}));
    EXPECT_EQ(componentsJoinedByString({u"a", u"", u"b"}, u"/"), u"a//b");
    EXPECT_EQ(componentsJoinedByString({}, u"/"), u"");
}

TEST(NSString, ReplacesFrontToBackOnce)
{
    EXPECT_EQ(stringByReplacingOccurrencesOfString(u"aaa", u"aa", u"a"), u"aa");
    EXPECT_EQ(stringByReplacingOccurrencesOfString(u"a/b/c", u"/", u"--"), u"a--b--c");
    EXPECT_EQ(stringByReplacingOccurrencesOfString(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(stringByReplacingOccurrencesOfString(u"e\u0301", u"e", u"x"), u"x\u0301");
}

TEST(NSString, CapitalizesByTheLocale)
{
    EXPECT_EQ(capitalizedStringWithLocale(u"hello WORLD", ""), u"Hello World");
    EXPECT_EQ(capitalizedStringWithLocale(u"istanbul", "tr_TR"), u"\u0130stanbul");
    EXPECT_EQ(capitalizedStringWithLocale(u"ijsland", "nl_NL"), u"IJsland");
    EXPECT_EQ(capitalizedStringWithLocale(u"\u01C6ep", ""), u"\u01C5ep");
    EXPECT_EQ(capitalizedStringWithLocale(u"", ""), u"");
}

TEST(NSString, EnumeratesLinesByAllTheirEnds)
{
    EXPECT_EQ(linesOf(u"a\nb\r\nc\rd\u2028e\u2029f\u0085g\vh\fi"),
              (Strings{u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i"}));
    EXPECT_EQ(linesOf(u"a\n\nb\n"), (Strings{u"a", u"", u"b"}));
    EXPECT_EQ(linesOf(u"\n\r"), (Strings{u"", u""}));
    EXPECT_EQ(linesOf(u""), Strings());
}

TEST(NSString, StopsEnumeratingWhenTold)
{
    int count = 0;
    enumerateLines(u"a\nb\nc", [&count](std::u16string_view /*line*/) { return ++count < 2; });
    EXPECT_EQ(count, 2);
}

TEST(NSString, FindsTheLinesOfARange)
{
    const std::u16string_view text = u"ab\r\ncd\ne";
    EXPECT_EQ(getLineStart(text, {0, 0}), (NSLineBounds{0, 2, 4}));
    EXPECT_EQ(getLineStart(text, {3, 0}), (NSLineBounds{0, 2, 4}));
    EXPECT_EQ(getLineStart(text, {1, 3}), (NSLineBounds{0, 2, 4}));
    EXPECT_EQ(getLineStart(text, {4, 0}), (NSLineBounds{4, 6, 7}));
    EXPECT_EQ(getLineStart(text, {1, 4}), (NSLineBounds{0, 6, 7}));
    EXPECT_EQ(getLineStart(text, {7, 0}), (NSLineBounds{7, 8, 8}));
    EXPECT_EQ(getLineStart(text, {8, 0}), (NSLineBounds{7, 8, 8}));
    EXPECT_EQ(getLineStart(text, {99, NSNotFound}), (NSLineBounds{7, 8, 8}));
    EXPECT_EQ(getLineStart(u"", {0, 0}), (NSLineBounds{0, 0, 0}));
    EXPECT_EQ(getLineStart(u"a\n", {2, 0}), (NSLineBounds{2, 2, 2}));
}

} // namespace

#include "strings/Capitalization.h"

#include <gtest/gtest.h>

#include <string>

using TSExtensions::smartCapitalizedString;

namespace {

TEST(SmartCapitalizedString, KeepsWordsThatHaveACapital)
{
    EXPECT_EQ(smartCapitalizedString(u"hello macOS world"), u"Hello macOS World");
    EXPECT_EQ(smartCapitalizedString(u"iPhone and NASA"), u"iPhone And NASA");
    EXPECT_EQ(smartCapitalizedString(u"\u01C5ep"), u"\u01C5ep");
}

TEST(SmartCapitalizedString, KeepsAllSpaces)
{
    EXPECT_EQ(smartCapitalizedString(u" a  b "), u" A  B ");
    EXPECT_EQ(smartCapitalizedString(u"  "), u"  ");
    EXPECT_EQ(smartCapitalizedString(u""), u"");
}

TEST(SmartCapitalizedString, CapitalizesWithinAWordOfTheText)
{
    EXPECT_EQ(smartCapitalizedString(u"one-two a\nb"), u"One-Two A\nB");
    EXPECT_EQ(smartCapitalizedString(u"don\u2019t \u00E9t\u00E9"), u"Don\u2019t \u00C9t\u00E9");
}

TEST(SmartCapitalizedString, TakesHugeTexts)
{
    const std::u16string text(5'000'000, u'a');
    EXPECT_EQ(smartCapitalizedString(text), u"A" + text.substr(1));
    EXPECT_EQ(smartCapitalizedString(std::u16string(5'000'000, u' ')).size(), 5'000'000U);
}

} // namespace

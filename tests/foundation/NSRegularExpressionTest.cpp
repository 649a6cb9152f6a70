#include "platform/foundation/NSRegularExpression.h"

#include "platform/foundation/NSLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

NSRegularExpression expression(std::u16string_view pattern)
{
    return NSRegularExpression::regularExpressionWithPattern(pattern).value();
}

TEST(NSRegularExpression, FindsMatchesWithTheirGroups)
{
    const auto matches = expression(u"(a)|(b+)").matchesInString(u"\U0001F600abb");
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_EQ(matches[0].range(), (NSRange{2, 1}));
    EXPECT_EQ(matches[0].ranges, (std::vector<NSRange>{{2, 1}, {2, 1}, {NSNotFound, 0}}));
    EXPECT_EQ(matches[1].ranges, (std::vector<NSRange>{{3, 2}, {NSNotFound, 0}, {3, 2}}));
}

TEST(NSRegularExpression, FindsTheFirst)
{
    EXPECT_EQ(expression(u"^[0-9]+").firstMatchInString(u"12 13")->range(), (NSRange{0, 2}));
    EXPECT_FALSE(expression(u"^[0-9]+").firstMatchInString(u"a 12"));
    EXPECT_FALSE(expression(u"a").firstMatchInString(u""));
}

TEST(NSRegularExpression, ReplacesWithTheTextAsItIs)
{
    EXPECT_EQ(expression(u"o+").stringByReplacingMatchesInString(u"foo bo", u"$1\\"), u"f$1\\ b$1\\");
    EXPECT_EQ(expression(u"x").stringByReplacingMatchesInString(u"foo", u"y"), u"foo");
}

TEST(NSRegularExpression, SaysWhatIsWrongWithAPattern)
{
    NSError error;
    EXPECT_FALSE(NSRegularExpression::regularExpressionWithPattern(u"(a", &error));
    EXPECT_NE(error.localizedDescription().find("U_REGEX_MISMATCHED_PAREN"), std::string::npos);
}

TEST(NSRegularExpression, EndsEarlyWhereAMatchTakesTooLong)
{
    std::vector<std::string> log;
    const NSLogCapture capture([&log](std::string_view line) { log.emplace_back(line); });
    const std::u16string hostile(40, u'a');
    EXPECT_TRUE(expression(u"(a+)+b").matchesInString(hostile + u"c").empty());
    ASSERT_EQ(log.size(), 1U);
    EXPECT_NE(log[0].find("U_REGEX_TIME_OUT"), std::string::npos);
}

TEST(NSRegularExpression, EndsEarlyWhereAMatchTakesTooMuchMemory)
{
    std::vector<std::string> log;
    const NSLogCapture capture([&log](std::string_view line) { log.emplace_back(line); });
    EXPECT_TRUE(expression(u"(ab?)*c").matchesInString(std::u16string(1'000'000, u'a')).empty());
    ASSERT_EQ(log.size(), 1U);
    EXPECT_NE(log[0].find("U_REGEX_STACK_OVERFLOW"), std::string::npos);
}

} // namespace

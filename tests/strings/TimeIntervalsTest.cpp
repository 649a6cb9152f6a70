#include "strings/TimeIntervals.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using TSExtensions::stringForTimeInterval;

namespace {

// The programs of the tests run without a language, so that the keys are the texts.

TEST(StringForTimeInterval, UsesTheLargestUnitOfWhichOneIsLeft)
{
    struct Case {
        double seconds;
        std::u16string_view text;
    };

    const Case cases[] = {
        {0, u"0 seconds remaining"},        {0.2, u"1 second remaining"},
        {1, u"1 second remaining"},         {1.5, u"2 seconds remaining"},
        {59, u"59 seconds remaining"},      {59.5, u"60 seconds remaining"},
        {60, u"1 minute remaining"},        {119.9, u"1 minute remaining"},
        {120, u"2 minutes remaining"},      {3599.5, u"59 minutes remaining"},
        {3600, u"1 hour remaining"},        {7200, u"2 hours remaining"},
        {86399, u"23 hours remaining"},     {86400, u"1 day remaining"},
        {2 * 86400.0, u"2 days remaining"}, {365 * 86400.0 + 1, u"365 days remaining"},
    };
    for (const auto& example : cases)
        EXPECT_EQ(stringForTimeInterval(example.seconds), example.text) << example.seconds;
}

TEST(StringForTimeInterval, TakesWhatIsNoRemainingTimeForNone)
{
    for (const double seconds : {-0.5, -1.0, -1e300, -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(stringForTimeInterval(seconds), u"0 seconds remaining") << seconds;
}

TEST(StringForTimeInterval, StopsAtTheLargestWholeNumber)
{
    EXPECT_EQ(stringForTimeInterval(1e300), u"9223372036854775807 days remaining");
    EXPECT_EQ(stringForTimeInterval(std::numeric_limits<double>::infinity()),
              u"9223372036854775807 days remaining");
}

} // namespace

#include "cli/MovePlan.h"

#include <gtest/gtest.h>

#include <string>

namespace {

NSURL url(const std::string& path)
{
    return NSURL::fileURLWithPath(path);
}

std::vector<MoveStep> plan(const std::string& from, const std::string& to)
{
    return movePlan(url(from), url(to));
}

TEST(MovePlan, NeedsOneStepForANewNameOrANewFolder)
{
    EXPECT_EQ(plan("/a/x", "/a/y"), (std::vector<MoveStep>{{url("/a/x"), url("/a/y")}}));
    EXPECT_EQ(plan("/a/x", "/b/x"), (std::vector<MoveStep>{{url("/a/x"), url("/b/x")}}));
}

TEST(MovePlan, TravelsUnderANameOfItsOwnWhereBothChange)
{
    const auto steps = plan("/a/x", "/b/y");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].from, url("/a/x"));
    EXPECT_EQ(steps[1].from, steps[0].to);
    EXPECT_EQ(steps[1].from.lastPathComponent(), steps[1].to.lastPathComponent());
    EXPECT_EQ(steps[2].from, steps[1].to);
    EXPECT_EQ(steps[2].to, url("/b/y"));
}

TEST(MovePlan, KeepsNamesByteForByte)
{
    EXPECT_EQ(plan("/a/50% \xFF", "/b/y")[0].from.path(), "/a/50% \xFF");
}

} // namespace

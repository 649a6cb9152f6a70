#include "cli/MovePlan.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

NSURL url(const std::string& path)
{
    return NSURL::fileURLWithPath(path);
}

std::vector<MoveStep> plan(const std::string& from, const std::string& to,
                           const std::set<std::string>& indexed = {})
{
    return movePlan(url(from), url(to), [&](const NSURL& stop) { return indexed.contains(stop.path()); });
}

TEST(MovePlan, NeedsOneStepForANewNameOrANewFolder)
{
    EXPECT_EQ(plan("/a/x", "/a/y"), (std::vector<MoveStep>{{url("/a/x"), url("/a/y")}}));
    EXPECT_EQ(plan("/a/x", "/b/x"), (std::vector<MoveStep>{{url("/a/x"), url("/b/x")}}));
}

TEST(MovePlan, MovesAndThenRenames)
{
    EXPECT_EQ(plan("/a/x", "/b/y"),
              (std::vector<MoveStep>{{url("/a/x"), url("/b/x")}, {url("/b/x"), url("/b/y")}}));
}

TEST(MovePlan, NeverReplacesAnotherDocumentOnTheWay)
{
    EXPECT_EQ(plan("/a/x", "/b/y", {"/b/x"}),
              (std::vector<MoveStep>{{url("/a/x"), url("/a/y")}, {url("/a/y"), url("/b/y")}}));
    const auto steps = plan("/a/x", "/b/y", {"/b/x", "/a/y"});
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].from, url("/a/x"));
    EXPECT_EQ(steps[1].from, steps[0].to);
    EXPECT_EQ(steps[1].from.lastPathComponent(), steps[1].to.lastPathComponent());
    EXPECT_EQ(steps[2].from, steps[1].to);
    EXPECT_EQ(steps[2].to, url("/b/y"));
}

TEST(MovePlan, KeepsNamesByteForByte)
{
    EXPECT_EQ(plan("/a/50% \xFF", "/b/y")[0].to.path(), "/b/50% \xFF");
}

} // namespace

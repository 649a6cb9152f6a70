#include "platform/layout/PageCuts.h"

#include <gtest/gtest.h>

namespace {

std::vector<PageLine> linesOfHeight(double height, std::size_t count)
{
    std::vector<PageLine> lines;
    for (std::size_t i = 0; i < count; ++i) {
        const auto top = static_cast<double>(i) * height;
        lines.push_back({{i * 10, 10}, top, top + height});
    }
    return lines;
}

TEST(PageCuts, PutsAsManyLinesOnAPageAsFit)
{
    const auto pages = cutIntoPages(linesOfHeight(30, 7), 100);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[0].ranges, (std::vector<NSRange>{{0, 30}}));
    EXPECT_EQ(pages[1].ranges, (std::vector<NSRange>{{30, 30}}));
    EXPECT_EQ(pages[2].ranges, (std::vector<NSRange>{{60, 10}}));
    EXPECT_EQ(pages[1].top, 90);
    EXPECT_EQ(pages[1].bottom, 180);
}

TEST(PageCuts, TakesALineThatJustFits)
{
    EXPECT_EQ(cutIntoPages(linesOfHeight(25, 4), 100).size(), 1U);
    EXPECT_EQ(cutIntoPages(linesOfHeight(25, 5), 100).size(), 2U);
}

TEST(PageCuts, LeavesOutWhatIsEmptyAtACut)
{
    const auto pages = cutIntoPages({{{0, 1}, 0, 90}, {{1, 1}, 5000, 5010}}, 100);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[1].top, 5000);
}

TEST(PageCuts, LetsALineThatIsHigherThanAPageStandAlone)
{
    const auto pages = cutIntoPages({{{0, 1}, 0, 10}, {{1, 1}, 10, 500}, {{2, 1}, 500, 510}}, 100);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[1].ranges, (std::vector<NSRange>{{1, 1}}));
    EXPECT_EQ(pages[1].top, 10);
    EXPECT_NEAR(pages[1].bottom, 110, 0.1);
    EXPECT_EQ(pages[2].top, 500);
}

TEST(PageCuts, CutsCellsBesideEachOtherBetweenTheirOwnLines)
{
    // Two cells of one row: lines of 40 in the first, of 30 in the second.
    const std::vector<PageLine> lines = {
        {{0, 1}, 0, 40}, {{1, 1}, 40, 80}, {{2, 1}, 80, 120}, //
        {{3, 1}, 0, 30}, {{4, 1}, 30, 60}, {{5, 1}, 60, 90},  {{6, 1}, 90, 120},
    };
    const auto pages = cutIntoPages(lines, 100);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0].ranges, (std::vector<NSRange>{{0, 2}, {3, 3}}));
    EXPECT_EQ(pages[1].ranges, (std::vector<NSRange>{{2, 1}, {6, 1}}));
    EXPECT_EQ(pages[1].top, 80);
}

TEST(PageCuts, MakesNoPageOfNoLines)
{
    EXPECT_TRUE(cutIntoPages({}, 100).empty());
}

} // namespace

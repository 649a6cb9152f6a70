#include "richtext/ListIndentation.h"

#include "paragraphs/ParagraphStyles.h"

#include <gtest/gtest.h>

namespace {

NSMutableParagraphStyle makeStyle(std::initializer_list<double> stops, double headIndent, double interval = 0)
{
    NSMutableParagraphStyle style;
    NSParagraphStyle::TabStops tabStops;
    for (const auto location : stops)
        tabStops.push_back(std::make_shared<const NSTextTab>(NSTextAlignment::Natural, location));
    style.setTabStops(tabStops);
    style.setHeadIndent(headIndent);
    style.setDefaultTabInterval(interval);
    return style;
}

double indented(NSMutableParagraphStyle style)
{
    indentToNextTabStop(style);
    return style.headIndent();
}

} // namespace

TEST(ListIndentation, GoesToTheFirstStopBehindTheIndent)
{
    EXPECT_EQ(indented(makeStyle({10, 20, 30}, 10)), 20);
    EXPECT_EQ(indented(makeStyle({10, 20, 30}, 0)), 10);
}

TEST(ListIndentation, TakesStopsInTheirOrder)
{
    EXPECT_EQ(indented(makeStyle({40, 20}, 10)), 40);
}

TEST(ListIndentation, GoesByTheDefaultIntervalWhereThereIsNoStop)
{
    EXPECT_EQ(indented(makeStyle({10, 20}, 20, 36)), 56);
    EXPECT_EQ(indented(makeStyle({}, 5, 7)), 12);
}

TEST(ListIndentation, DoesNotGoToAStopAtNought)
{
    EXPECT_EQ(indented(makeStyle({0, 20}, -10, 36)), 26);
}

TEST(ListIndentation, GoesToTheDefaultStylesFirstStopWhereTheIntervalLeadsNowhere)
{
    EXPECT_EQ(indented(makeStyle({}, 0)), 28);
    EXPECT_EQ(indented(makeStyle({}, -40, 36)), 28);
    EXPECT_EQ(indented(makeStyle({}, -36, 36)), 28);
}

TEST(ListIndentation, MovesTheFirstLineAlong)
{
    auto style = makeStyle({10, 25}, 10);
    style.setFirstLineHeadIndent(4);
    indentToNextTabStop(style);
    EXPECT_EQ(style.firstLineHeadIndent(), 19);
}

TEST(ListIndentation, PutsTheStandardListAt84Points)
{
    // The list's stops at 11 and 36 are passed; of the default ones 84 is the first that it keeps.
    auto style = CVLExtensions::listParagraphStyle();
    indentToNextTabStop(style);
    EXPECT_EQ(style.headIndent(), 84);
    EXPECT_EQ(style.firstLineHeadIndent(), 48);
}

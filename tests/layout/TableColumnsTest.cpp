#include "platform/layout/TableColumns.h"

#include <gtest/gtest.h>

namespace {

using Widths = std::vector<double>;

TEST(TableColumns, ShareTheTableAlikeWithoutAnyWish)
{
    EXPECT_EQ(columnWidths({{}, {}, {}}, 300), (Widths{100, 100, 100}));
}

TEST(TableColumns, HaveTheWidthsThatTheySay)
{
    EXPECT_EQ(columnWidths({{50.0, 0}, {}, {}}, 300), (Widths{50, 125, 125}));
    EXPECT_EQ(columnWidths({{50.0, 0}, {80.0, 0}}, 300), (Widths{50, 80}));
}

TEST(TableColumns, ShrinkInProportionWhereTheySayTooMuch)
{
    EXPECT_EQ(columnWidths({{300.0, 0}, {100.0, 0}}, 200), (Widths{150, 50}));
}

TEST(TableColumns, GiveWhatNarrowOnesDoNotNeedToTheOthers)
{
    EXPECT_EQ(columnWidths({{std::nullopt, 40}, {std::nullopt, 900}, {std::nullopt, 900}}, 300),
              (Widths{40, 130, 130}));
}

TEST(TableColumns, ShareWhatNoneNeeds)
{
    EXPECT_EQ(columnWidths({{std::nullopt, 40}, {std::nullopt, 60}}, 300), (Widths{140, 160}));
}

TEST(TableColumns, KeepSomethingForThoseThatSayNothing)
{
    const auto widths = columnWidths({{500.0, 0}, {}}, 260);
    EXPECT_NEAR(widths[0], 250, 1e-9);
    EXPECT_NEAR(widths[1], 10, 1e-9);
}

TEST(TableColumns, AreNoneInATableWithoutAny)
{
    EXPECT_TRUE(columnWidths({}, 300).empty());
}

} // namespace

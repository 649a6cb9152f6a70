#include "paragraphs/ParagraphStyles.h"

#include <gmock/gmock.h>

#include <array>
#include <vector>

using namespace CVLExtensions;

namespace {

std::vector<double> tabLocations(const NSParagraphStyle& style)
{
    std::vector<double> locations;
    for (const auto& stop : style.tabStops())
        locations.push_back(stop->location());
    return locations;
}

NSMutableParagraphStyle styleWithIndents(double headIndent, double firstLineHeadIndent)
{
    NSMutableParagraphStyle style;
    style.setTabStops({});
    style.setHeadIndent(headIndent);
    style.setFirstLineHeadIndent(firstLineHeadIndent);
    return style;
}

using Setter = void (NSMutableParagraphStyle::*)(double);

/// The six values of line spacing.
constexpr std::array<Setter, 6> kSpacingSetters{
    &NSMutableParagraphStyle::setLineHeightMultiple, &NSMutableParagraphStyle::setLineSpacing,
    &NSMutableParagraphStyle::setParagraphSpacing,   &NSMutableParagraphStyle::setParagraphSpacingBefore,
    &NSMutableParagraphStyle::setMinimumLineHeight,  &NSMutableParagraphStyle::setMaximumLineHeight,
};

NSMutableParagraphStyle styleWithSpacing()
{
    NSMutableParagraphStyle style;
    double value = 1;
    for (const auto setter : kSpacingSetters)
        (style.*setter)(value++);
    return style;
}

} // namespace

TEST(ParagraphStyles, GivesListsTheirIndentsAndTabs)
{
    const auto style = listParagraphStyle();
    EXPECT_EQ(style.firstLineHeadIndent(), 0);
    EXPECT_EQ(style.headIndent(), 36);
    EXPECT_EQ(style.defaultTabInterval(), 36);
    EXPECT_THAT(tabLocations(style),
                testing::ElementsAre(11, 36, 84, 112, 140, 168, 196, 224, 252, 280, 308, 336));
}

TEST(ParagraphStyles, GivesListsNaturalTabsWithoutOptions)
{
    const auto style = listParagraphStyle();
    for (std::size_t index = 0; index < 2; ++index) {
        EXPECT_EQ(style.tabStops()[index]->alignment(), NSTextAlignment::Natural);
        EXPECT_TRUE(style.tabStops()[index]->options().empty());
    }
    EXPECT_EQ(style.tabStops()[2]->alignment(), NSTextAlignment::Left);
}

TEST(ParagraphStyles, KeepsTheRestOfTheDefaultStyleInLists)
{
    auto style = listParagraphStyle();
    style.setTabStops(NSParagraphStyle::defaultTabStops());
    style.setDefaultTabInterval(0);
    style.setHeadIndent(0);
    EXPECT_TRUE(style.isEqual(*NSParagraphStyle::defaultParagraphStyle()));
}

TEST(ParagraphStyles, MakesTheMarkersOfListStyles)
{
    EXPECT_EQ(listMarkerForListStyle(1, 7), u"\t\u2022\t");
    EXPECT_EQ(listMarkerForListStyle(2, 7), u"\t\u2043\t");
    EXPECT_EQ(listMarkerForListStyle(3, 3), u"\t3.\t");
    EXPECT_EQ(listMarkerForListStyle(3, 12), u"\t12.\t");
    EXPECT_EQ(listMarkerForListStyle(3, -1), u"\t-1.\t");
}

TEST(ParagraphStyles, MakesNoMarkerForOtherListStyles)
{
    for (const NSInteger listStyle : {0, 4, -1})
        EXPECT_EQ(listMarkerForListStyle(listStyle, 1), u"") << listStyle;
}

TEST(ParagraphStyles, OffersTwelveLineHeightMultiples)
{
    EXPECT_THAT(userInterfaceLineHeightMultiples(),
                testing::ElementsAre(0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.1, 1.2, 1.3, 1.4, 1.5, 2.0));
}

TEST(ParagraphStyles, KnowsTheListStyleAsAList)
{
    EXPECT_TRUE(isListParagraphStyle(listParagraphStyle()));
}

TEST(ParagraphStyles, TakesAHangingIndentOfThirtySixForAList)
{
    EXPECT_TRUE(isListParagraphStyle(styleWithIndents(36, 0)));
    EXPECT_TRUE(isListParagraphStyle(styleWithIndents(72, 36)));
    EXPECT_TRUE(isListParagraphStyle(styleWithIndents(18, -18)));
}

TEST(ParagraphStyles, TakesOtherIndentsForNoList)
{
    EXPECT_FALSE(isListParagraphStyle(styleWithIndents(20, 0)));
    EXPECT_FALSE(isListParagraphStyle(styleWithIndents(36, 36)));
    EXPECT_FALSE(isListParagraphStyle(*NSParagraphStyle::defaultParagraphStyle()));
}

TEST(ParagraphStyles, MatchesLineSpacingWithinTheEpsilon)
{
    const NSMutableParagraphStyle style;
    NSMutableParagraphStyle other;
    other.setMaximumLineHeight(1e-20);
    EXPECT_TRUE(lineSpacingMatchesStyle(style, other));
    EXPECT_TRUE(isEqualToParagraphStyle(style, other));
    other.setMaximumLineHeight(2.220446049250313e-16);
    EXPECT_TRUE(lineSpacingMatchesStyle(style, other));
    other.setMaximumLineHeight(0.01);
    EXPECT_FALSE(lineSpacingMatchesStyle(style, other));
    EXPECT_FALSE(isEqualToParagraphStyle(style, other));
}

TEST(ParagraphStyles, ComparesEachOfTheSixSpacings)
{
    for (const auto setter : kSpacingSetters) {
        auto other = styleWithSpacing();
        (other.*setter)(100);
        EXPECT_FALSE(lineSpacingMatchesStyle(styleWithSpacing(), other));
        EXPECT_FALSE(lineSpacingMatchesStyle(other, styleWithSpacing()));
    }
    EXPECT_TRUE(lineSpacingMatchesStyle(styleWithSpacing(), styleWithSpacing()));
}

TEST(ParagraphStyles, ComparesAlignmentButNeitherTabsNorIndentsNorLists)
{
    const NSMutableParagraphStyle style;
    auto other = listParagraphStyle();
    other.setTextLists({std::make_shared<const NSTextList>(NSTextListMarkerDisc)});
    EXPECT_TRUE(isEqualToParagraphStyle(style, other));
    other.setAlignment(NSTextAlignment::Right);
    EXPECT_FALSE(isEqualToParagraphStyle(style, other));
    EXPECT_TRUE(lineSpacingMatchesStyle(style, other));
}

TEST(ParagraphStyles, ScalesAllSpacingsButTheMultiple)
{
    auto style = styleWithSpacing();
    style.setLineHeightMultiple(1.2);
    style.setHeadIndent(10);
    const auto scaled = scaledParagraphStyle(style, 2);
    EXPECT_EQ(scaled.lineHeightMultiple(), 1.2);
    EXPECT_EQ(scaled.lineSpacing(), 4);
    EXPECT_EQ(scaled.paragraphSpacing(), 6);
    EXPECT_EQ(scaled.paragraphSpacingBefore(), 8);
    EXPECT_EQ(scaled.minimumLineHeight(), 10);
    EXPECT_EQ(scaled.maximumLineHeight(), 12);
    EXPECT_EQ(scaled.headIndent(), 10);
    EXPECT_EQ(style.lineSpacing(), 2);
}

TEST(ParagraphStyles, TakesLineSpacingOver)
{
    auto style = listParagraphStyle();
    style.setAlignment(NSTextAlignment::Center);
    applyLineSpacingFromStyle(style, styleWithSpacing());
    EXPECT_EQ(style.lineHeightMultiple(), 1);
    EXPECT_EQ(style.lineSpacing(), 2);
    EXPECT_EQ(style.paragraphSpacing(), 3);
    EXPECT_EQ(style.paragraphSpacingBefore(), 4);
    EXPECT_EQ(style.minimumLineHeight(), 5);
    EXPECT_EQ(style.maximumLineHeight(), 6);
    EXPECT_EQ(style.alignment(), NSTextAlignment::Center);
    EXPECT_EQ(style.headIndent(), 36);
}

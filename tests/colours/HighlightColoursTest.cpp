#include "colours/HighlightColours.h"

#include "colours/HighlightAttribute.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace CVLExtensions;

namespace {

TEST(HighlightColours, HaveTypesNamesAndDisplayNamesInOneOrder)
{
    struct Row {
        NSInteger type;
        NSColor::Ref color;
        std::u16string_view name;
    };

    const std::array rows{
        Row{1, yellowHighlightColor(), u"YellowHighlightColor"},
        Row{2, greenHighlightColor(), u"GreenHighlightColor"},
        Row{3, blueHighlightColor(), u"BlueHighlightColor"},
        Row{4, pinkHighlightColor(), u"PinkHighlightColor"},
        Row{5, purpleHighlightColor(), u"PurpleHighlightColor"},
    };
    ASSERT_EQ(allHighlightColorTypes(), (std::vector<NSInteger>{1, 2, 3, 4, 5}));
    ASSERT_EQ(allHighlightColors().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].color->type(), NSColorType::Catalog);
        EXPECT_EQ(rows[i].color->colorNameComponent(), rows[i].name);
        EXPECT_TRUE(allHighlightColors()[i]->isEqual(*rows[i].color));
        EXPECT_TRUE(colorForHighlightColorType(rows[i].type)->isEqual(*rows[i].color));
        EXPECT_EQ(highlightColorType(*rows[i].color), rows[i].type);
    }
}

// Without a catalogue for the language of the test, the keys are the names.
TEST(HighlightColours, CallTheYellowOneOrange)
{
    EXPECT_EQ(allHighlightColorNames(),
              (std::vector<std::u16string>{u"Orange", u"Green", u"Blue", u"Pink", u"Purple"}));
}

TEST(HighlightColours, HaveNoColourForOtherTypes)
{
    for (const NSInteger type : {0, 6, -1, 9999})
        EXPECT_EQ(colorForHighlightColorType(type), nullptr);
}

TEST(HighlightColours, AreRecognisedByTheirComponentsToo)
{
    const auto components = pinkHighlightColor()->colorUsingType(NSColorType::ComponentBased);
    EXPECT_EQ(highlightColorType(*components), 4);
    EXPECT_EQ(highlightColorType(*NSColor::colorWithRed(1, 0, 0, 1)), 0);
    EXPECT_EQ(highlightColorType(*NSColor::textColor()), 0);
    EXPECT_EQ(highlightColorType(*highlightBackgroundColor(pinkHighlightColor())), 0);
}

TEST(HighlightColours, LieOnAPaleGroundOfTheirOwn)
{
    const auto green = greenHighlightColor();
    const auto ground = highlightBackgroundColor(green);
    EXPECT_EQ(ground->alphaComponent(), 0.15);
    EXPECT_EQ(ground->colorWithAlphaComponent(1)->deviceRGBComponents(), green->deviceRGBComponents());
    EXPECT_EQ(highlightForegroundColor(green), green);
    EXPECT_EQ(highlightBackgroundColor(nullptr), nullptr);
}

double luminance(const NSColorRGBA& color)
{
    const auto linear = NSColorSpace::colorSpaceWithName(NSColorSpace::Name::LinearSRGB);
    const auto light = NSColor::colorWithRed(color.red, color.green, color.blue, 1)
                           ->colorUsingColorSpace(linear)
                           ->components();
    return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2];
}

double contrast(const NSColorRGBA& one, const NSColorRGBA& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

NSColorRGBA over(const NSColorRGBA& color, double alpha, const NSColorRGBA& ground)
{
    const auto mixed = [alpha](double above, double below) { return above * alpha + below * (1 - alpha); };
    return {mixed(color.red, ground.red), mixed(color.green, ground.green), mixed(color.blue, ground.blue),
            1};
}

// 4.5 is the least contrast for text of ordinary size by the Web Content Accessibility Guidelines, level AA.
TEST(HighlightColours, AreLegibleOnTheirGroundInBothAppearances)
{
    for (const auto appearance : {NSAppearance::Light, NSAppearance::Dark}) {
        const auto page = *NSColor::textBackgroundColor()->deviceRGBComponents(appearance);
        for (const auto& color : allHighlightColors()) {
            const auto text = *color->deviceRGBComponents(appearance);
            EXPECT_GE(contrast(text, over(text, 0.15, page)), 4.5);
        }
    }
}

TEST(HighlightColours, KeepTheNameOfTheirAttribute)
{
    EXPECT_EQ(CVLHighlightTextAttributeName, u"CVLHighlightTextAttribute");
}

} // namespace

#include "platform/text/NSColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using Values = std::vector<double>;

TEST(NSColor, IsMadeInTheSpaceThatItsNameSays)
{
    const auto color = NSColor::colorWithRed(0.25, 0.5, 0.75, 0.5);
    EXPECT_EQ(color->type(), NSColorType::ComponentBased);
    EXPECT_EQ(color->colorSpace(), NSColorSpace::sRGBColorSpace());
    EXPECT_EQ(color->components(), (Values{0.25, 0.5, 0.75, 0.5}));
    EXPECT_EQ(NSColor::colorWithDeviceRed(0, 0, 0, 1)->colorSpace(), NSColorSpace::deviceRGBColorSpace());
    EXPECT_EQ(NSColor::colorWithCalibratedRed(0, 0, 0, 1)->colorSpace(),
              NSColorSpace::genericRGBColorSpace());
    EXPECT_EQ(NSColor::colorWithWhite(0.5, 1)->colorSpace(), NSColorSpace::genericGamma22GrayColorSpace());
    EXPECT_EQ(NSColor::colorWithCalibratedWhite(0.5, 0.25)->components(), (Values{0.5, 0.25}));
    EXPECT_EQ(NSColor::colorWithDeviceCyan(0.1, 0.2, 0.3, 0.4, 1)->components(),
              (Values{0.1, 0.2, 0.3, 0.4, 1}));
}

TEST(NSColor, HoldsComponentsToTheirSpace)
{
    const auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(NSColor::colorWithRed(-1, 2, std::nan(""), infinity)->components(), (Values{0, 1, 0, 1}));
    const auto extended = NSColorSpace::colorSpaceWithName(NSColorSpace::Name::ExtendedSRGB);
    EXPECT_EQ(NSColor::colorWithColorSpace(extended, {-0.5, 1.5, infinity, 2})->components(),
              (Values{-0.5, 1.5, 1, 1}));
    EXPECT_EQ(NSColor::colorWithColorSpace(extended, {0, 0, 0}), nullptr);
    EXPECT_EQ(NSColor::colorWithColorSpace(nullptr, {0, 0, 0, 1}), nullptr);
}

TEST(NSColor, GivesItsExactComponentsInDeviceRGB)
{
    EXPECT_EQ(NSColor::colorWithRed(0.1, 0.7, 1.0 / 3, 0.2)->deviceRGBComponents(),
              (NSColorRGBA{0.1, 0.7, 1.0 / 3, 0.2}));
    for (const auto& black : {NSColor::blackColor(), NSColor::colorWithRed(0, 0, 0, 1),
                              NSColor::colorWithCalibratedRed(0, 0, 0, 1), NSColor::colorWithWhite(0, 1),
                              NSColor::colorWithDeviceCyan(0, 0, 0, 1, 1)})
        EXPECT_EQ(black->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 1}));
    for (const auto& white : {NSColor::whiteColor(), NSColor::colorWithRed(1, 1, 1, 1),
                              NSColor::colorWithCalibratedRed(1, 1, 1, 1), NSColor::colorWithWhite(1, 1),
                              NSColor::colorWithDisplayP3Red(1, 1, 1, 1)})
        EXPECT_EQ(white->deviceRGBComponents(), (NSColorRGBA{1, 1, 1, 1}));
    EXPECT_EQ(NSColor::clearColor()->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 0}));
}

TEST(NSColor, ResolvesASystemColourForTheAppearance)
{
    const auto text = NSColor::textColor();
    EXPECT_EQ(text->type(), NSColorType::Catalog);
    EXPECT_EQ(text->catalogNameComponent(), u"System");
    EXPECT_EQ(text->colorNameComponent(), u"textColor");
    EXPECT_EQ(text->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 1}));
    EXPECT_EQ(text->deviceRGBComponents(NSAppearance::Dark), (NSColorRGBA{1, 1, 1, 1}));
    EXPECT_TRUE(text->components().empty());
    EXPECT_EQ(text->colorSpace(), nullptr);
    EXPECT_EQ(NSColor::systemColorNamed(u"noSuchColor"), nullptr);
}

TEST(NSColor, PrefersWhatItKnowsOfANameToTheFallback)
{
    const auto red = NSColor::colorWithRed(1, 0, 0, 1);
    EXPECT_EQ(NSColor::colorWithCatalogName(u"System", u"textColor", red)->deviceRGBComponents(),
              (NSColorRGBA{0, 0, 0, 1}));
    EXPECT_EQ(NSColor::colorWithCatalogName(u"Crayons", u"Maraschino", red)->deviceRGBComponents(),
              (NSColorRGBA{1, 0, 0, 1}));
    EXPECT_EQ(NSColor::colorWithCatalogName(u"System", u"unheardOfColor", nullptr)->deviceRGBComponents(),
              std::nullopt);
}

TEST(NSColor, FindsTheColoursOfTheAssetCatalogOnly)
{
    const auto yellow = NSColor::colorNamed(u"YellowHighlightColor");
    ASSERT_NE(yellow, nullptr);
    EXPECT_EQ(yellow->type(), NSColorType::Catalog);
    EXPECT_NE(yellow->deviceRGBComponents(), yellow->deviceRGBComponents(NSAppearance::Dark));
    EXPECT_EQ(NSColor::colorNamed(u"textColor"), nullptr);
    EXPECT_EQ(NSColor::colorNamed(u""), nullptr);
}

TEST(NSColor, ChangesItsAlphaAndKeepsItsSpace)
{
    const auto pale = NSColor::colorWithCalibratedRed(0.1, 0.2, 0.3, 1)->colorWithAlphaComponent(0.15);
    EXPECT_EQ(pale->components(), (Values{0.1, 0.2, 0.3, 0.15}));
    EXPECT_EQ(pale->colorSpace(), NSColorSpace::genericRGBColorSpace());
    EXPECT_EQ(pale->alphaComponent(), 0.15);
    EXPECT_EQ(NSColor::textColor()->colorWithAlphaComponent(0.5, NSAppearance::Dark)->deviceRGBComponents(),
              (NSColorRGBA{1, 1, 1, 0.5}));
}

TEST(NSColor, IsShadedAndLightenedInCalibratedRGB)
{
    const auto color = NSColor::colorWithCalibratedRed(0.5, 1, 0, 0.5);
    const auto shaded = color->shadowWithLevel(0.1);
    EXPECT_EQ(shaded->colorSpace(), NSColorSpace::genericRGBColorSpace());
    const auto parts = shaded->components();
    EXPECT_DOUBLE_EQ(parts[0], 0.45);
    EXPECT_DOUBLE_EQ(parts[1], 0.9);
    EXPECT_DOUBLE_EQ(parts[2], 0);
    EXPECT_DOUBLE_EQ(parts[3], 0.55);
    EXPECT_DOUBLE_EQ(color->highlightWithLevel(0.5)->components()[2], 0.5);
    EXPECT_EQ(color->shadowWithLevel(7)->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 1}));
    EXPECT_EQ(color->shadowWithLevel(0)->components(), color->components());
}

TEST(NSColor, IsConvertedOnlyWhereThereIsAWay)
{
    const auto display = NSColorSpace::colorSpaceWithICCProfileData("a display", NSColorSpaceModel::RGB);
    const auto color = NSColor::colorWithColorSpace(display, {0.1, 0.2, 0.3, 1});
    EXPECT_EQ(color->colorUsingColorSpace(display)->components(), color->components());
    EXPECT_EQ(NSColor::whiteColor()->colorUsingColorSpace(display), nullptr);
    // A profile that is not looked into is most likely near sRGB.
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{0.1, 0.2, 0.3, 1}));
    EXPECT_EQ(color->colorUsingType(NSColorType::Catalog), nullptr);
    EXPECT_EQ(color->colorUsingType(NSColorType::Pattern), nullptr);
}

TEST(NSColor, EqualsByValueWithinOneKind)
{
    EXPECT_TRUE(NSColor::colorWithRed(0.5, 0, 0, 1)->isEqual(*NSColor::colorWithSRGBRed(0.5, 0, 0, 1)));
    EXPECT_EQ(NSColor::colorWithRed(0.5, 0, 0, 1)->hash(), NSColor::colorWithSRGBRed(0.5, 0, 0, 1)->hash());
    EXPECT_FALSE(NSColor::colorWithRed(0, 0, 0, 1)->isEqual(*NSColor::colorWithDeviceRed(0, 0, 0, 1)));
    EXPECT_TRUE(NSColor::textColor()->isEqual(*NSColor::textColor()));
    EXPECT_FALSE(NSColor::textColor()->isEqual(*NSColor::labelColor()));
    EXPECT_FALSE(NSColor::textColor()->isEqual(*NSColor::blackColor()));
}

TEST(NSColor, HasThePlainColours)
{
    EXPECT_EQ(NSColor::redColor()->components(), (Values{1, 0, 0, 1}));
    EXPECT_EQ(NSColor::brownColor()->components(), (Values{0.6, 0.4, 0.2, 1}));
    EXPECT_EQ(NSColor::orangeColor()->components(), (Values{1, 0.5, 0, 1}));
    EXPECT_EQ(NSColor::grayColor()->components(), (Values{0.5, 1}));
    EXPECT_EQ(NSColor::clearColor()->alphaComponent(), 0);
}

} // namespace

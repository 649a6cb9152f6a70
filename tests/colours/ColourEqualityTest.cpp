#include "colours/ColourEquality.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace CVLExtensions;

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

NSColor::Ref named(std::u16string_view catalog, std::u16string_view name, const NSColor::Ref& fallback)
{
    return NSColor::colorWithCatalogName(catalog, name, fallback);
}

TEST(ColourEquality, TakesOneNameForOneColour)
{
    const auto red = NSColor::colorWithRed(1, 0, 0, 1);
    const auto blue = NSColor::colorWithRed(0, 0, 1, 1);
    EXPECT_TRUE(isEqualToColorTesselVersion(*named(u"A", u"brand", red), *named(u"A", u"brand", blue)));
    EXPECT_FALSE(isEqualToColorTesselVersion(*named(u"A", u"brand", red), *named(u"A", u"other", blue)));
}

TEST(ColourEquality, ComparesDifferentNamesByComponents)
{
    const auto red = NSColor::colorWithRed(1, 0, 0, 1);
    EXPECT_TRUE(isEqualToColorCVLVersion(*named(u"A", u"brand", red), *named(u"A", u"other", red)));
    EXPECT_TRUE(isEqualToColorCVLVersion(*named(u"A", u"brand", red), *red));
    // Colours of the system share a catalog and are not equal for it.
    EXPECT_FALSE(isEqualToColorCVLVersion(*NSColor::linkColor(), *NSColor::textColor()));
    EXPECT_TRUE(isEqualToColorCVLVersion(*NSColor::textColor(), *NSColor::blackColor()));
    EXPECT_FALSE(isEqualToColorCVLVersion(*NSColor::textColor(), *NSColor::blackColor(), NSAppearance::Dark));
}

TEST(ColourEquality, AllowsTheMachineEpsilonInEveryComponentAndNoMore)
{
    const auto color = [](double red, double green, double blue, double alpha) {
        return NSColor::colorWithDeviceRed(red, green, blue, alpha);
    };
    const auto base = color(0.5, 0.5, 0.5, 0.5);
    const auto near = 0.5 + kEpsilon;
    const auto far = 0.5 + 2 * kEpsilon;
    EXPECT_TRUE(isEqualToColorTesselVersion(*base, *color(near, near, near, near)));
    EXPECT_FALSE(isEqualToColorTesselVersion(*base, *color(far, 0.5, 0.5, 0.5)));
    EXPECT_FALSE(isEqualToColorTesselVersion(*base, *color(0.5, far, 0.5, 0.5)));
    EXPECT_FALSE(isEqualToColorTesselVersion(*base, *color(0.5, 0.5, far, 0.5)));
    EXPECT_FALSE(isEqualToColorTesselVersion(*base, *color(0.5, 0.5, 0.5, far)));
}

TEST(ColourEquality, LooksAcrossColourSpaces)
{
    EXPECT_TRUE(
        isEqualToColorCVLVersion(*NSColor::blackColor(), *NSColor::colorWithCalibratedRed(0, 0, 0, 1)));
    EXPECT_TRUE(
        isEqualToColorCVLVersion(*NSColor::whiteColor(), *NSColor::colorWithDeviceCyan(0, 0, 0, 0, 1)));
    EXPECT_TRUE(isEqualToColorCVLVersion(*NSColor::colorWithDeviceRed(0.3, 0.6, 0.9, 1),
                                         *NSColor::colorWithRed(0.3, 0.6, 0.9, 1)));
}

TEST(ColourEquality, IsFalseForAColourWithoutComponents)
{
    const auto nothing = named(u"A", u"nothing", nullptr);
    EXPECT_FALSE(isEqualToColorCVLVersion(*nothing, *NSColor::blackColor()));
    EXPECT_TRUE(isEqualToColorCVLVersion(*nothing, *nothing));
}

TEST(ColourEquality, FindsWhiteAndBlackInTheSystemsLists)
{
    for (const auto& white :
         {NSColor::whiteColor(), appleWhiteColor(), crayonsWhiteColor(), NSColor::colorWithRed(1, 1, 1, 1)}) {
        EXPECT_TRUE(isWhiteColor(*white));
        EXPECT_FALSE(isBlackColor(*white));
    }
    for (const auto& black :
         {NSColor::blackColor(), appleBlackColor(), crayonsBlackColor(), NSColor::colorWithRed(0, 0, 0, 1)}) {
        EXPECT_TRUE(isBlackColor(*black));
        EXPECT_FALSE(isWhiteColor(*black));
    }
    EXPECT_FALSE(isWhiteColor(*NSColor::colorWithRed(1, 1, 1, 0.5)));
    EXPECT_FALSE(isBlackColor(*NSColor::clearColor()));
    EXPECT_FALSE(isWhiteColor(*NSColor::colorWithRed(1, 1, 254.0 / 255, 1)));
}

TEST(ColourEquality, TellsDarkColours)
{
    EXPECT_TRUE(isDarkColorCorvel(*NSColor::blackColor()));
    EXPECT_FALSE(isDarkColorCorvel(*NSColor::whiteColor()));
    // Both bounds are strict.
    EXPECT_FALSE(isDarkColorCorvel(*NSColor::colorWithRed(0, 0, 0, 0.5)));
    EXPECT_TRUE(isDarkColorCorvel(*NSColor::colorWithRed(0, 0, 0, 0.501)));
    EXPECT_FALSE(isDarkColorCorvel(*NSColor::colorWithRed(0.65, 0.65, 0.65, 1)));
    EXPECT_TRUE(isDarkColorCorvel(*NSColor::colorWithRed(0.649, 0.649, 0.649, 1)));
    // 0.299, 0.587 and 0.114 of the brightness: yellow 0.886, magenta 0.413, cyan 0.701.
    EXPECT_FALSE(isDarkColorCorvel(*NSColor::colorWithRed(1, 1, 0, 1)));
    EXPECT_TRUE(isDarkColorCorvel(*NSColor::colorWithRed(1, 0, 1, 1)));
    EXPECT_FALSE(isDarkColorCorvel(*NSColor::colorWithRed(0, 1, 1, 1)));
    EXPECT_TRUE(isDarkColorCorvel(*NSColor::textBackgroundColor(), NSAppearance::Dark));
}

} // namespace

#include "colours/ColourForms.h"

#include <gtest/gtest.h>

#include <limits>

using namespace CVLExtensions;

namespace {

TEST(ColourForms, WriteSixHexadecimalDigitsWithoutAlpha)
{
    EXPECT_EQ(hexadecimalString(*NSColor::whiteColor()), u"#ffffff");
    EXPECT_EQ(hexadecimalString(*NSColor::blackColor()), u"#000000");
    EXPECT_EQ(hexadecimalString(*NSColor::colorWithRed(0.5, 0, 1, 0.25)), u"#7f00ff");
    EXPECT_EQ(hexadecimalString(*NSColor::colorWithRed(0x0a / 255.0, 0xbc / 255.0, 0xde / 255.0, 1)),
              u"#0abcde");
    // The steps are cut off, not rounded: 0.999 of 255.99998 is 255.7.
    EXPECT_EQ(hexadecimalString(*NSColor::colorWithRed(0.999, 0.9960, 0.003, 1)), u"#fffe00");
    EXPECT_EQ(hexadecimalString(*NSColor::textColor(), NSAppearance::Dark), u"#ffffff");
    EXPECT_EQ(hexadecimalString(*NSColor::colorWithCatalogName(u"A", u"none", nullptr)), std::nullopt);
}

TEST(ColourForms, MakeAColourOpaqueForHexadecimal)
{
    const auto color = colorSuitableForHexNoAlpha(*NSColor::colorWithDeviceRed(0.1, 0.2, 0.3, 0.4));
    EXPECT_EQ(color->colorSpace(), NSColorSpace::sRGBColorSpace());
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{0.1, 0.2, 0.3, 1}));
    EXPECT_EQ(colorSuitableForHexNoAlpha(*NSColor::textColor())->type(), NSColorType::ComponentBased);
    EXPECT_EQ(colorSuitableForHexNoAlpha(*NSColor::colorWithCatalogName(u"A", u"none", nullptr)), nullptr);
}

TEST(ColourForms, GiveDoublesAsAPropertyList)
{
    const auto list = propertyListRepresentation(*NSColor::colorWithRed(0.1, 1.0 / 3, 0, 0.5));
    ASSERT_EQ(list.size(), 4U);
    EXPECT_TRUE(list.at(u"red").isReal());
    EXPECT_EQ(list.at(u"red").doubleValue(), 0.1);
    EXPECT_EQ(list.at(u"green").doubleValue(), 1.0 / 3);
    EXPECT_EQ(list.at(u"blue").doubleValue(), 0);
    EXPECT_EQ(list.at(u"alpha").doubleValue(), 0.5);
    EXPECT_TRUE(propertyListRepresentation(*NSColor::colorWithCatalogName(u"A", u"none", nullptr)).empty());
}

// Single precision on the way back is required: 0.1 becomes 0.1f.
TEST(ColourForms, ComeBackFromAPropertyListInSinglePrecision)
{
    const auto back = colorFromPropertyListRepresentation(
        propertyListRepresentation(*NSColor::colorWithRed(0.1, 0.5, 1, 1)));
    const auto rgba = *back->deviceRGBComponents();
    EXPECT_EQ(rgba.red, static_cast<double>(0.1F));
    EXPECT_NE(rgba.red, 0.1);
    EXPECT_EQ(rgba.green, 0.5);
    EXPECT_EQ(rgba.blue, 1);
}

TEST(ColourForms, ReadWhatIsMissingFromAPropertyListAsNothing)
{
    const auto color = colorFromPropertyListRepresentation({{u"red", NSAny(1)}, {u"green", NSAny(u"0.5")}});
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{1, 0.5, 0, 0}));
    EXPECT_EQ(colorFromPropertyListRepresentation({{u"red", NSAny(7)}, {u"alpha", NSAny(-1)}})
                  ->deviceRGBComponents(),
              (NSColorRGBA{1, 0, 0, 0}));
}

TEST(ColourForms, RoundAComponentToThreePlacesInDecimal)
{
    EXPECT_EQ(decimalNumberForColorComponent(0), "0");
    EXPECT_EQ(decimalNumberForColorComponent(1), "1");
    EXPECT_EQ(decimalNumberForColorComponent(0.5), "0.5");
    EXPECT_EQ(decimalNumberForColorComponent(1.0 / 3), "0.333");
    EXPECT_EQ(decimalNumberForColorComponent(2.0 / 3), "0.667");
    // 0.0005 is below one half of a thousandth in binary, yet six decimal places say exactly a half.
    EXPECT_EQ(decimalNumberForColorComponent(0.0005), "0.001");
    EXPECT_EQ(decimalNumberForColorComponent(0.0004999), "0.001");
    EXPECT_EQ(decimalNumberForColorComponent(0.000499), "0");
    EXPECT_EQ(decimalNumberForColorComponent(0.9995), "1");
    EXPECT_EQ(decimalNumberForColorComponent(-0.0005), "-0.001");
    EXPECT_EQ(decimalNumberForColorComponent(-0.9999), "-1");
    EXPECT_EQ(decimalNumberForColorComponent(-0.0001), "0");
    EXPECT_EQ(decimalNumberForColorComponent(99.9996), "100");
    EXPECT_EQ(decimalNumberForColorComponent(std::numeric_limits<double>::quiet_NaN()), "NaN");
}

} // namespace

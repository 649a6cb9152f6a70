#include "platform/drawing/PangoFonts.h"

#include "platform/text/NSFont.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

std::string familyOf(const NSFont::Ref& font)
{
    return pango_font_description_get_family(fontDescription(*font).get());
}

NSFont::Ref fontNamed(std::u16string_view name)
{
    return NSFont::fontWithName(name, 12);
}

TEST(PangoFonts, AskForTheFamilyAndThenForOneOfItsCharacter)
{
    EXPECT_EQ(familyOf(fontNamed(u"Helvetica")), "Helvetica,sans-serif");
    EXPECT_EQ(familyOf(fontNamed(u"TimesNewRomanPSMT")), "Times New Roman,serif");
    EXPECT_EQ(familyOf(fontNamed(u"Georgia")), "Georgia,serif");
    EXPECT_EQ(familyOf(fontNamed(u"Menlo-Regular")), "Menlo,monospace");
    EXPECT_EQ(familyOf(fontNamed(u"CourierNewPSMT")), "Courier New,monospace");
}

TEST(PangoFonts, TakeAnySansSerifForTheSystemFont)
{
    EXPECT_EQ(familyOf(NSFont::systemFontOfSize(13)), "sans-serif");
}

TEST(PangoFonts, HaveTheWeightSlantAndWidthOfTheFace)
{
    const auto bold = fontDescription(*NSFont::boldSystemFontOfSize(13));
    EXPECT_EQ(pango_font_description_get_weight(bold.get()), PANGO_WEIGHT_BOLD);
    EXPECT_EQ(pango_font_description_get_style(bold.get()), PANGO_STYLE_NORMAL);
    const auto light = fontDescription(*NSFont::systemFontOfSize(13, NSFontWeightLight));
    EXPECT_EQ(pango_font_description_get_weight(light.get()), PANGO_WEIGHT_LIGHT);
    const auto italic = fontDescription(*fontNamed(u"Arial-BoldItalicMT"));
    EXPECT_EQ(pango_font_description_get_style(italic.get()), PANGO_STYLE_ITALIC);
    EXPECT_EQ(pango_font_description_get_weight(italic.get()), PANGO_WEIGHT_BOLD);
    const auto condensed = fontDescription(*fontNamed(u"AmericanTypewriter-Condensed"));
    EXPECT_EQ(pango_font_description_get_stretch(condensed.get()), PANGO_STRETCH_CONDENSED);
}

TEST(PangoFonts, AreSizedInPointsWithinLimits)
{
    const auto sizeOf = [](double size) {
        const auto description = fontDescription(*NSFont::systemFontOfSize(size));
        EXPECT_TRUE(pango_font_description_get_size_is_absolute(description.get()));
        return pango_font_description_get_size(description.get());
    };
    EXPECT_EQ(sizeOf(12.5), 12800);
    EXPECT_EQ(sizeOf(1e-6), 102);
    EXPECT_EQ(sizeOf(10000), 4096 * 1024);
}

TEST(PangoFonts, CountLengthsWithinLimits)
{
    EXPECT_EQ(pangoUnits(1.5), 1536);
    EXPECT_EQ(pangoUnits(1e300), 1024000000);
    EXPECT_EQ(pangoUnits(-std::numeric_limits<double>::infinity()), -1024000000);
}

} // namespace

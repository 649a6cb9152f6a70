#include "platform/text/NSFont.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <thread>
#include <vector>

namespace {

NSFont::Ref fontWithFamilyAndWeight(std::u16string_view family, double weight, double size)
{
    const NSAny::Dictionary traits{{std::u16string(NSFontWeightTrait), NSAny(weight)}};
    const auto descriptor = NSFontDescriptor::fontDescriptorWithFontAttributes(
        {{std::u16string(NSFontFamilyAttribute), NSAny(family)},
         {std::u16string(NSFontTraitsAttribute), NSAny(traits)}});
    return NSFont::fontWithDescriptor(*descriptor, size);
}

TEST(NSFont, IsFoundByItsPostScriptNameOnly)
{
    const auto font = NSFont::fontWithName(u"HelveticaNeue-Bold", 17);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), u"HelveticaNeue-Bold");
    EXPECT_EQ(font->familyName(), u"Helvetica Neue");
    EXPECT_EQ(font->faceName(), u"Bold");
    EXPECT_EQ(font->displayName(), u"Helvetica Neue Bold");
    EXPECT_EQ(font->pointSize(), 17);
    for (const auto* name : {u"Helvetica Neue", u"helveticaneue", u"NoSuchFont", u"", u"/etc/passwd",
                             u"DejaVuSans:weight=200", u"../Helvetica"})
        EXPECT_EQ(NSFont::fontWithName(name, 12), nullptr);
    EXPECT_EQ(NSFont::fontWithName(std::u16string(100000, u'A'), 12), nullptr);
}

TEST(NSFont, HasTheDefaultSizeWithoutAUsableOne)
{
    for (const double size : {0.0, -3.0, std::nan(""), 1e300})
        EXPECT_EQ(NSFont::fontWithName(u"Helvetica", size)->pointSize(), NSFont::kDefaultSize);
    EXPECT_EQ(NSFont::fontWithName(u"Helvetica", 0.5)->pointSize(), 0.5);
}

// The families and weights of the standard text styles.
TEST(NSFont, IsFoundByFamilyAndWeight)
{
    EXPECT_EQ(fontWithFamilyAndWeight(u"Helvetica Neue", NSFontWeightRegular, 12)->fontName(),
              u"HelveticaNeue");
    EXPECT_EQ(fontWithFamilyAndWeight(u"Helvetica Neue", NSFontWeightBold, 17)->fontName(),
              u"HelveticaNeue-Bold");
    EXPECT_EQ(fontWithFamilyAndWeight(u"Helvetica Neue", NSFontWeightUltraLight, 17)->fontName(),
              u"HelveticaNeue-UltraLight");
    EXPECT_EQ(fontWithFamilyAndWeight(u"Menlo", NSFontWeightRegular, 12)->fontName(), u"Menlo-Regular");
    EXPECT_EQ(fontWithFamilyAndWeight(u"Menlo", NSFontWeightBlack, 12)->fontName(), u"Menlo-Bold");
    EXPECT_EQ(fontWithFamilyAndWeight(u"No Such Family", NSFontWeightBold, 12), nullptr);
}

TEST(NSFont, PrefersTheNameOfADescriptorToItsFamily)
{
    const auto descriptor = NSFontDescriptor::fontDescriptorWithFontAttributes(
        {{std::u16string(NSFontNameAttribute), NSAny(u"Georgia-Italic")},
         {std::u16string(NSFontSizeAttribute), NSAny(9.5)},
         {std::u16string(NSFontFamilyAttribute), NSAny(u"Menlo")}});
    EXPECT_EQ(NSFont::fontWithDescriptor(*descriptor, 0)->fontName(), u"Georgia-Italic");
    EXPECT_EQ(NSFont::fontWithDescriptor(*descriptor, 0)->pointSize(), 9.5);
    EXPECT_EQ(NSFont::fontWithDescriptor(*descriptor, 20)->pointSize(), 20);
}

TEST(NSFont, IsFoundByTheFaceOrTheSymbolicTraitsOfADescriptor)
{
    const auto face = NSFontDescriptor::fontDescriptorWithFontAttributes(
        {{std::u16string(NSFontFamilyAttribute), NSAny(u"Times")},
         {std::u16string(NSFontFaceAttribute), NSAny(u"Bold Italic")}});
    EXPECT_EQ(NSFont::fontWithDescriptor(*face, 12)->fontName(), u"Times-BoldItalic");
    const NSAny::Dictionary traits{
        {std::u16string(NSFontSymbolicTrait), NSAny(NSFontItalicTrait | NSFontBoldTrait)}};
    const auto symbolic = NSFontDescriptor::fontDescriptorWithFontAttributes(
        {{std::u16string(NSFontFamilyAttribute), NSAny(u"Courier")},
         {std::u16string(NSFontTraitsAttribute), NSAny(traits)}});
    EXPECT_EQ(NSFont::fontWithDescriptor(*symbolic, 12)->fontName(), u"Courier-BoldOblique");
    // A family without italics gives its upright face.
    const auto upright = NSFontDescriptor::fontDescriptorWithFontAttributes(
        {{std::u16string(NSFontFamilyAttribute), NSAny(u"PingFang SC")},
         {std::u16string(NSFontTraitsAttribute), NSAny(traits)}});
    EXPECT_EQ(NSFont::fontWithDescriptor(*upright, 12)->fontName(), u"PingFangSC-Semibold");
}

// The units that the measures stand for: Helvetica 1577 and 471 of 2048 units, Menlo 1901 and 483 of 2048,
// Helvetica Neue 952, 213 and 28 of 1000.
TEST(NSFont, HasTheMeasuresOfThePlatformsFontsOnEveryMachine)
{
    const auto helvetica = NSFont::fontWithName(u"Helvetica", 2048);
    EXPECT_NEAR(helvetica->ascender(), 1577, 0.5);
    EXPECT_NEAR(helvetica->descender(), -471, 0.5);
    EXPECT_EQ(helvetica->leading(), 0);
    const auto menlo = NSFont::fontWithName(u"Menlo-Regular", 2048);
    EXPECT_NEAR(menlo->ascender(), 1901, 0.5);
    EXPECT_NEAR(menlo->descender(), -483, 0.5);
    const auto neue = NSFont::fontWithName(u"HelveticaNeue", 1000);
    EXPECT_DOUBLE_EQ(neue->ascender(), 952);
    EXPECT_DOUBLE_EQ(neue->descender(), -213);
    EXPECT_DOUBLE_EQ(neue->leading(), 28);
    EXPECT_LT(neue->underlinePosition(), 0);
    EXPECT_GT(neue->underlineThickness(), 0);
    EXPECT_GT(neue->capHeight(), neue->xHeight());
}

TEST(NSFont, KnowsTraitsAndWeightByItsFace)
{
    EXPECT_TRUE(NSFont::fontWithName(u"Menlo-Regular", 12)->isFixedPitch());
    EXPECT_FALSE(NSFont::fontWithName(u"Helvetica", 12)->isFixedPitch());
    EXPECT_EQ(NSFont::fontWithName(u"HelveticaNeue-Bold", 12)->weight(), NSFontWeightBold);
    EXPECT_EQ(NSFont::fontWithName(u"Helvetica-BoldOblique", 12)->symbolicTraits(),
              unsigned{NSFontBoldTrait} | NSFontItalicTrait);
}

TEST(NSFont, HasFontsForTheSystemAndTheUser)
{
    EXPECT_EQ(NSFont::userFontOfSize(0)->fontName(), u"Helvetica");
    EXPECT_EQ(NSFont::userFontOfSize(0)->pointSize(), 12);
    EXPECT_EQ(NSFont::userFixedPitchFontOfSize(11)->fontName(), u"Menlo-Regular");
    EXPECT_EQ(NSFont::systemFontOfSize(13)->fontName(), u".AppleSystemUIFont");
    EXPECT_EQ(NSFont::boldSystemFontOfSize(13)->fontName(), u".AppleSystemUIFontBold");
    EXPECT_EQ(NSFont::boldSystemFontOfSize(13)->weight(), NSFontWeightBold);
    EXPECT_EQ(NSFont::systemFontOfSize(13)->familyName(), NSFont::boldSystemFontOfSize(13)->familyName());
}

TEST(NSFont, TakesANameWithADotForASystemFont)
{
    const auto font = NSFont::fontWithName(u".SFNSText-SemiboldItalic", 13);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), u".SFNSText-SemiboldItalic");
    EXPECT_EQ(font->familyName(), u".AppleSystemUIFont");
    EXPECT_EQ(font->weight(), NSFontWeightSemibold);
    EXPECT_EQ(font->symbolicTraits(), unsigned{NSFontBoldTrait} | NSFontItalicTrait);
    EXPECT_EQ(NSFont::fontWithName(u".", 12), nullptr);
    EXPECT_EQ(NSFont::fontWithName(u".with space", 12), nullptr);
}

TEST(NSFont, EqualsByNameAndSize)
{
    const auto font = NSFont::fontWithName(u"Georgia", 12);
    EXPECT_TRUE(font->isEqual(*NSFont::fontWithName(u"Georgia", 12)));
    EXPECT_EQ(font->hash(), NSFont::fontWithName(u"Georgia", 12)->hash());
    EXPECT_FALSE(font->isEqual(*NSFont::fontWithName(u"Georgia", 13)));
    EXPECT_FALSE(font->isEqual(*NSFont::fontWithName(u"Georgia-Bold", 12)));
    EXPECT_TRUE(NSFont::fontWithDescriptor(*font->fontDescriptor(), 0)->isEqual(*font));
}

TEST(NSFont, IsFoundByManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    std::vector<NSFont::Ref> found(8);
    for (auto& font : found)
        threads.emplace_back([&font] { font = NSFont::fontWithName(u"AvenirNext-Regular", 12); });
    for (auto& thread : threads)
        thread.join();
    for (const auto& font : found) {
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(&font->face(), &found.front()->face());
    }
}

} // namespace

#include "platform/text/NSFontManager.h"

#include <gtest/gtest.h>

namespace {

class NSFontManagerTest : public testing::Test {
protected:
    static NSFont::Ref font(std::u16string_view name) { return NSFont::fontWithName(name, 12); }

    const NSFontManager& m_manager = NSFontManager::sharedFontManager();
};

TEST_F(NSFontManagerTest, GivesTraitsAndWeightByThePlatformsNumbers)
{
    EXPECT_EQ(m_manager.traitsOfFont(*font(u"HelveticaNeue")), 0U);
    EXPECT_EQ(m_manager.traitsOfFont(*font(u"HelveticaNeue-CondensedBold")),
              unsigned{NSBoldFontMask} | NSCondensedFontMask);
    EXPECT_EQ(m_manager.traitsOfFont(*font(u"Menlo-BoldItalic")),
              unsigned{NSBoldFontMask} | NSItalicFontMask | NSFixedPitchFontMask);
    EXPECT_EQ(m_manager.weightOfFont(*font(u"HelveticaNeue")), 5);
    EXPECT_EQ(m_manager.weightOfFont(*font(u"HelveticaNeue-Medium")), 6);
    EXPECT_EQ(m_manager.weightOfFont(*font(u"HelveticaNeue-Bold")), 9);
    EXPECT_EQ(m_manager.weightOfFont(*font(u"HelveticaNeue-UltraLight")), 2);
}

TEST_F(NSFontManagerTest, FindsTheFaceOfAFamily)
{
    const auto name = [&](std::u16string_view family, unsigned traits, int weight) {
        const auto found = m_manager.fontWithFamily(family, traits, weight, 14);
        return found ? found->fontName() : std::u16string(u"none");
    };
    EXPECT_EQ(name(u"Times", NSItalicFontMask, 5), u"Times-Italic");
    EXPECT_EQ(name(u"Times", NSItalicFontMask | NSBoldFontMask, 9), u"Times-BoldItalic");
    EXPECT_EQ(name(u"Times", NSBoldFontMask, 5), u"Times-Bold");
    EXPECT_EQ(name(u"Times", 0, 5), u"Times-Roman");
    EXPECT_EQ(name(u"Helvetica Neue", NSCondensedFontMask, 9), u"HelveticaNeue-CondensedBold");
    EXPECT_EQ(name(u"Helvetica Neue", 0, 15), u"HelveticaNeue-Bold");
    EXPECT_EQ(name(u"Helvetica Neue", 0, 0), u"HelveticaNeue-UltraLight");
    EXPECT_EQ(name(u"Helvetica Neue", NSUnboldFontMask, 9), u"HelveticaNeue");
    // What a fixed-pitch font had is no condition for another family.
    EXPECT_EQ(name(u"Georgia", NSFixedPitchFontMask, 5), u"Georgia");
    EXPECT_EQ(name(u"PingFang SC", NSItalicFontMask, 5), u"none");
    EXPECT_EQ(name(u"Monaco", NSBoldFontMask, 9), u"none");
    EXPECT_EQ(name(u"No Such Family", 0, 5), u"none");
}

TEST_F(NSFontManagerTest, ConvertsWithinTheFamily)
{
    const auto regular = font(u"Helvetica");
    const auto bold = m_manager.convertFontToHaveTrait(regular, NSBoldFontMask);
    EXPECT_EQ(bold->fontName(), u"Helvetica-Bold");
    EXPECT_EQ(m_manager.convertFontToHaveTrait(bold, NSItalicFontMask)->fontName(), u"Helvetica-BoldOblique");
    EXPECT_EQ(m_manager.convertFontToNotHaveTrait(bold, NSBoldFontMask)->fontName(), u"Helvetica");
    EXPECT_EQ(m_manager.convertFontToHaveTrait(bold, NSUnboldFontMask)->fontName(), u"Helvetica");
    const auto slanted = font(u"Helvetica-Oblique");
    EXPECT_EQ(m_manager.convertFontToHaveTrait(slanted, NSUnitalicFontMask)->fontName(), u"Helvetica");
    EXPECT_EQ(m_manager.convertFontToHaveTrait(slanted, NSItalicFontMask), slanted);
    EXPECT_EQ(m_manager.convertFontToNotHaveTrait(regular, NSItalicFontMask), regular);
}

TEST_F(NSFontManagerTest, KeepsAFontThatCannotBeConverted)
{
    const auto monaco = font(u"Monaco");
    EXPECT_EQ(m_manager.convertFontToHaveTrait(monaco, NSBoldFontMask), monaco);
    EXPECT_EQ(m_manager.convertFontToFamily(monaco, u"No Such Family"), monaco);
}

TEST_F(NSFontManagerTest, ConvertsToASizeAndToAFamily)
{
    const auto big = m_manager.convertFontToSize(font(u"Georgia-Bold"), 30);
    EXPECT_EQ(big->fontName(), u"Georgia-Bold");
    EXPECT_EQ(big->pointSize(), 30);
    EXPECT_EQ(m_manager.convertFontToFamily(big, u"Verdana")->fontName(), u"Verdana-Bold");
    EXPECT_EQ(m_manager.convertFontToFamily(big, u"Verdana")->pointSize(), 30);
}

} // namespace

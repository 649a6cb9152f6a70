#include "platform/text/FontCatalog.h"

#include "platform/text/InstalledFonts.h"

#include <gtest/gtest.h>

namespace {

// Most development machines have it; nothing else here depends on what is installed.
constexpr std::u16string_view kInstalledName = u"DejaVuSans-Bold";

TEST(FontCatalog, FindsAnInstalledFaceByItsExactName)
{
    if (!installedFaceNamed(kInstalledName))
        GTEST_SKIP() << "DejaVu Sans is not installed";
    const auto face = faceNamed(kInstalledName);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->familyName, u"DejaVu Sans");
    EXPECT_EQ(face->weight, FontWeight::Bold);
    EXPECT_TRUE(face->traits & NSFontBoldTrait);
    EXPECT_GT(face->metrics.ascender, 0.5);
    EXPECT_LT(face->metrics.descender, 0);
    EXPECT_EQ(faceNamed(kInstalledName), face);
    EXPECT_EQ(faceNamed(u"dejavusans-bold"), nullptr);
    EXPECT_EQ(faceNamed(u"DejaVuSans-Bol"), nullptr);
}

TEST(FontCatalog, FindsTheFacesOfAnInstalledFamily)
{
    if (!installedFaceNamed(kInstalledName))
        GTEST_SKIP() << "DejaVu Sans is not installed";
    const auto faces = facesOfFamily(u"DejaVu Sans");
    const auto bold = nearestFace(faces, 0, NSFontItalicTrait | NSFontCondensedTrait, NSFontWeightBold);
    ASSERT_NE(bold, nullptr);
    EXPECT_EQ(bold, faceNamed(kInstalledName));
}

TEST(FontCatalog, FindsNothingUnderAnUnknownFamily)
{
    EXPECT_TRUE(facesOfFamily(u"No Such Family").empty());
    EXPECT_TRUE(facesOfFamily(u"").empty());
    EXPECT_EQ(nearestFace({}, 0, 0, 0), nullptr);
}

TEST(FontCatalog, TakesTheWeightFurtherFromRegularOfTwoAtTheSameDistance)
{
    const auto faces = facesOfFamily(u"Helvetica");
    EXPECT_EQ(nearestFace(faces, 0, NSFontItalicTrait, -0.2)->postScriptName, u"Helvetica-Light");
    EXPECT_EQ(nearestFace(faces, 0, NSFontItalicTrait, 0.2)->postScriptName, u"Helvetica-Bold");
}

TEST(FontCatalog, MakesAStandInThatKeepsTheName)
{
    const auto face = standInForFaceNamed(u"Sailec-BoldItalic");
    EXPECT_EQ(face->postScriptName, u"Sailec-BoldItalic");
    EXPECT_EQ(face->familyName, u"Sailec");
    EXPECT_EQ(face->faceName, u"Bold Italic");
    EXPECT_EQ(face->weight, FontWeight::Bold);
    EXPECT_EQ(standInForFaceNamed(u"Plain")->familyName, u"Plain");
    EXPECT_LT(standInForFaceNamed(std::u16string(100000, u'x'))->postScriptName.size(), 1000U);
}

} // namespace

#include "platform/text/FontTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace {

TEST(FontTable, HasEachPostScriptNameOnce)
{
    std::set<std::u16string_view> names;
    for (const auto& face : platformFaces())
        EXPECT_TRUE(names.insert(face.postScriptName).second);
}

TEST(FontTable, FindsAllFacesOfAFamily)
{
    EXPECT_EQ(platformFacesOfFamily(u"Helvetica Neue").size(), 14U);
    EXPECT_EQ(platformFacesOfFamily(u"Menlo").size(), 4U);
    EXPECT_TRUE(platformFacesOfFamily(u"helvetica").empty());
    EXPECT_TRUE(platformFacesOfFamily(u"").empty());
    for (const auto& face : platformFaces())
        EXPECT_FALSE(platformFacesOfFamily(face.family).empty());
}

TEST(FontTable, HasMeasuresThatTextCanBeSetWith)
{
    for (const auto& [family, face, name, weight, traits, metrics] : platformFaces()) {
        EXPECT_GT(metrics.ascender, 0.5);
        EXPECT_LT(metrics.descender, 0);
        EXPECT_GE(metrics.leading, 0);
        EXPECT_LT(metrics.underlinePosition, 0);
        const bool isBold = (traits & NSFontBoldTrait) != 0;
        EXPECT_EQ(isBold, weight >= FontWeight::Semibold);
    }
}

} // namespace

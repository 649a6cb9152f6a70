#include "platform/text/NSColorSpace.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Name = NSColorSpace::Name;

TEST(NSColorSpace, IsOneObjectForANamedSpace)
{
    EXPECT_EQ(NSColorSpace::sRGBColorSpace(), NSColorSpace::colorSpaceWithName(Name::SRGB));
    EXPECT_EQ(NSColorSpace::colorSpaceWithName(Name::None), nullptr);
    EXPECT_FALSE(NSColorSpace::sRGBColorSpace()->isEqual(*NSColorSpace::deviceRGBColorSpace()));
}

TEST(NSColorSpace, KnowsTheKindOfItsComponents)
{
    EXPECT_EQ(NSColorSpace::genericGrayColorSpace()->colorSpaceModel(), NSColorSpaceModel::Gray);
    EXPECT_EQ(NSColorSpace::genericGrayColorSpace()->numberOfColorComponents(), 1U);
    EXPECT_EQ(NSColorSpace::displayP3ColorSpace()->numberOfColorComponents(), 3U);
    EXPECT_EQ(NSColorSpace::deviceCMYKColorSpace()->numberOfColorComponents(), 4U);
    EXPECT_TRUE(NSColorSpace::colorSpaceWithName(Name::ExtendedSRGB)->isExtended());
    EXPECT_FALSE(NSColorSpace::sRGBColorSpace()->isExtended());
}

TEST(NSColorSpace, RecognisesTheProfileOfSRGBAndKeepsOthers)
{
    std::string profile(3144, '\0');
    profile.replace(400, 17, "sRGB IEC61966-2.1");
    EXPECT_EQ(NSColorSpace::colorSpaceWithICCProfileData(profile, NSColorSpaceModel::RGB),
              NSColorSpace::sRGBColorSpace());

    const auto display = NSColorSpace::colorSpaceWithICCProfileData("a display", NSColorSpaceModel::RGB);
    EXPECT_EQ(display->name(), Name::None);
    EXPECT_EQ(display->iccProfileData(), "a display");
    EXPECT_TRUE(
        display->isEqual(*NSColorSpace::colorSpaceWithICCProfileData("a display", NSColorSpaceModel::RGB)));
    EXPECT_FALSE(
        display->isEqual(*NSColorSpace::colorSpaceWithICCProfileData("another", NSColorSpaceModel::RGB)));
}

} // namespace

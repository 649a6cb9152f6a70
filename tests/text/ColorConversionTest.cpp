#include "platform/text/ColorConversion.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

using Name = NSColorSpace::Name;
using RGB = std::array<double, 3>;

constexpr std::array kRGBSpaces{Name::GenericRGB,   Name::DeviceRGB,  Name::SRGB,
                                Name::AdobeRGB1998, Name::DisplayP3,  Name::DCIP3,
                                Name::ExtendedSRGB, Name::LinearSRGB, Name::ExtendedLinearSRGB};
constexpr std::array kGreySpaces{Name::GenericGray, Name::DeviceGray, Name::GenericGamma22Gray,
                                 Name::ExtendedGenericGamma22Gray};

void expectNear(const ColorComponents& components, const RGB& expected, double tolerance)
{
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(components[i], expected[i], tolerance) << i;
}

// Pairs of the same colour as programs of the platform wrote them, in sRGB and in generic RGB.
TEST(ColorConversion, AgreesWithThePlatformOnGenericRGB)
{
    struct Pair {
        RGB sRGB;
        RGB generic;
    };

    const std::vector<Pair> pairs{
        {{0.1973060291, 0.5129697036, 1}, {0.1564897001, 0.413073808, 0.9984152317}},
        {{0.07300955971, 0, 0.9764705882}, {0.0474075973, 0, 0.9686228633}},
        {{0.8089283002, 0.9558125407, 1}, {0.7708743811, 0.9458788633, 0.9995503426}},
        {{0.274594805, 0.3982574555, 0.4916800704}, {0.2150603533, 0.3225973547, 0.4157972932}},
        {{1, 1, 1}, {1, 0.99997437, 0.9999912977}},
    };
    for (const auto& [sRGB, generic] : pairs) {
        expectNear(componentsFromExtendedSRGB(Name::GenericRGB, sRGB), generic, 3e-5);
        // Where the generic space cut nothing off, the way back ends where it began.
        const bool isWithin = generic[0] > 0 && generic[1] > 0 && generic[2] > 0 && generic[0] < 1;
        if (isWithin) {
            const auto back
                = extendedSRGBFromComponents(Name::GenericRGB, {generic[0], generic[1], generic[2]});
            expectNear({back[0], back[1], back[2]}, sRGB, 1e-4);
        }
    }
}

TEST(ColorConversion, AgreesWithThePlatformOnGenericGrey)
{
    EXPECT_NEAR(componentsFromExtendedSRGB(Name::GenericGray, {0.6666666667, 0.6666666667, 0.6666666667})[0],
                0.602715373, 1e-6);
    EXPECT_NEAR(componentsFromExtendedSRGB(Name::GenericGray, {0.5, 0.5, 0.5})[0], 0.4246723652, 1e-6);
}

TEST(ColorConversion, KeepsBlackAndWhiteExactlyInEverySpace)
{
    for (const auto space : kRGBSpaces) {
        for (const double end : {0.0, 1.0}) {
            EXPECT_EQ(extendedSRGBFromComponents(space, {end, end, end}), (RGB{end, end, end}));
            EXPECT_EQ(componentsFromExtendedSRGB(space, {end, end, end}), (ColorComponents{end, end, end}));
        }
    }
    for (const auto space : kGreySpaces) {
        for (const double end : {0.0, 1.0}) {
            EXPECT_EQ(extendedSRGBFromComponents(space, {end}), (RGB{end, end, end}));
            EXPECT_EQ(componentsFromExtendedSRGB(space, {end, end, end}), (ColorComponents{end}));
        }
    }
    EXPECT_EQ(extendedSRGBFromComponents(Name::DeviceCMYK, {0, 0, 0, 1}), (RGB{0, 0, 0}));
    EXPECT_EQ(extendedSRGBFromComponents(Name::DeviceCMYK, {0, 0, 0, 0}), (RGB{1, 1, 1}));
    EXPECT_EQ(componentsFromExtendedSRGB(Name::DeviceCMYK, {0, 0, 0}), (ColorComponents{0, 0, 0, 1}));
    EXPECT_EQ(componentsFromExtendedSRGB(Name::DeviceCMYK, {1, 1, 1}), (ColorComponents{0, 0, 0, 0}));
}

TEST(ColorConversion, KeepsGreysGrey)
{
    for (const auto space : kRGBSpaces) {
        for (int step = 1; step < 16; ++step) {
            const auto grey = step / 16.0;
            const auto color = extendedSRGBFromComponents(space, {grey, grey, grey});
            EXPECT_EQ(color[0], color[1]);
            EXPECT_EQ(color[1], color[2]);
        }
    }
}

TEST(ColorConversion, ChangesNothingBetweenSpacesThatShareComponents)
{
    const RGB color{0.1, 0.7, 1.0 / 3};
    for (const auto space : {Name::DeviceRGB, Name::SRGB, Name::ExtendedSRGB})
        EXPECT_EQ(componentsFromExtendedSRGB(space, color), (ColorComponents{0.1, 0.7, 1.0 / 3}));
    EXPECT_EQ(componentsFromExtendedSRGB(Name::DeviceGray, {0.3, 0.3, 0.3})[0], 0.3);
}

// Red, green and blue of Display P3 in extended sRGB, as published with the space.
TEST(ColorConversion, PlacesDisplayP3OutsideOfSRGB)
{
    const auto red = extendedSRGBFromComponents(Name::DisplayP3, {1, 0, 0});
    expectNear({red[0], red[1], red[2]}, {1.0930, -0.2267, -0.1501}, 2e-4);
    const auto held = componentsFromExtendedSRGB(Name::SRGB, red);
    EXPECT_EQ(held, (ColorComponents{1, 0, 0}));
    const auto extended = componentsFromExtendedSRGB(Name::ExtendedSRGB, red);
    EXPECT_LT(extended[1], 0);
}

TEST(ColorConversion, ReturnsToWhereItBegan)
{
    const RGB color{0.25, 0.5, 0.375};
    for (const auto space : kRGBSpaces) {
        const auto there = componentsFromExtendedSRGB(space, color);
        const auto back = extendedSRGBFromComponents(space, there);
        expectNear({back[0], back[1], back[2]}, color, 1e-8);
    }
    const auto inks = componentsFromExtendedSRGB(Name::DeviceCMYK, color);
    EXPECT_EQ(inks, (ColorComponents{0.5, 0, 0.25, 0.5}));
    EXPECT_EQ(extendedSRGBFromComponents(Name::DeviceCMYK, inks), color);
}

// 0.2126, 0.7152 and 0.0722 are the parts of red, green and blue in brightness; green in sRGB grey is
// 1.055 * 0.7152 ^ (1 / 2.4) - 0.055.
TEST(ColorConversion, TakesAColourToTheGreyOfItsBrightness)
{
    EXPECT_NEAR(componentsFromExtendedSRGB(Name::GenericGamma22Gray, {0, 1, 0})[0], 0.86248, 1e-5);
}

} // namespace

#include "platform/text/ColorConversion.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Name = NSColorSpace::Name;
using RGB = std::array<double, 3>;

/// How light becomes a component: by a power, as sRGB prescribes, or not at all.
struct Transfer {
    enum class Kind { Power, SRGB, Linear } kind = Kind::SRGB;
    double exponent = 1;
};

double decodedMagnitude(Transfer transfer, double value)
{
    // The ends stay exact whatever the curve's rounding.
    if (value == 0 || value == 1 || transfer.kind == Transfer::Kind::Linear)
        return value;
    if (transfer.kind == Transfer::Kind::Power)
        return std::pow(value, transfer.exponent);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double encodedMagnitude(Transfer transfer, double light)
{
    if (light == 0 || light == 1 || transfer.kind == Transfer::Kind::Linear)
        return light;
    if (transfer.kind == Transfer::Kind::Power)
        return std::pow(light, 1 / transfer.exponent);
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

double decoded(Transfer transfer, double value)
{
    return std::copysign(decodedMagnitude(transfer, std::abs(value)), value);
}

double encoded(Transfer transfer, double light)
{
    return std::copysign(encodedMagnitude(transfer, std::abs(light)), light);
}

/// A linear map between spaces of one white: the parts that the other two components have in each. Written as
/// differences, it keeps greys exactly.
struct Mixing {
    double greenInRed, blueInRed;
    double redInGreen, blueInGreen;
    double redInBlue, greenInBlue;

    [[nodiscard]] RGB applied(const RGB& light) const
    {
        const auto [red, green, blue] = light;
        return {red + greenInRed * (green - red) + blueInRed * (blue - red),
                green + redInGreen * (red - green) + blueInGreen * (blue - green),
                blue + redInBlue * (red - blue) + greenInBlue * (green - blue)};
    }
};

struct RGBSpace {
    Transfer transfer;
    std::optional<Mixing> toSRGB;
    std::optional<Mixing> fromSRGB;
};

constexpr Transfer kSRGBTransfer{Transfer::Kind::SRGB};
/// Generic grey and generic RGB.
constexpr Transfer kGenericTransfer{Transfer::Kind::Power, 1.8};

/// The map that archives show, where the same colour stands in sRGB and in generic RGB; its primaries are red
/// .630 .340, green .295 .605, blue .155 .077.
constexpr RGBSpace kGenericRGB{
    kGenericTransfer,
    Mixing{-0.0265609897, 0.0013006694, 0.0194070149, 0.0325913587, -0.0017628236, -0.0014363177},
    Mixing{0.0273097240, -0.0021511256, -0.0200143712, -0.0342235275, 0.0016843380, 0.0015573805}};

/// From the published primaries and whites; DCI P3 is adapted to the white of sRGB by Bradford's method.
constexpr RGBSpace kAdobeRGB{{Transfer::Kind::Power, 563.0 / 256.0},
                             Mixing{-0.3983557440, 0, 0, 0, 0, -0.0429289893},
                             Mixing{0.2848743931, 0, 0, 0, 0, 0.0411619485}};
constexpr RGBSpace kDisplayP3{kSRGBTransfer,
                              Mixing{-0.2249401763, 0, -0.0420569547, 0, -0.0196375546, -0.0786360456},
                              Mixing{0.1775380313, 0, 0.0331941989, 0, 0.0170826307, 0.0723974407}};
constexpr RGBSpace kDCIP3{
    {Transfer::Kind::Power, 2.6},
    Mixing{-0.1549623781, -0.0025540281, -0.0415000715, -0.0040678515, -0.0180500390, -0.0785782727},
    Mixing{0.1289191385, 0.0025011218, 0.0345404103, 0.0036482034, 0.0167714290, 0.0710399978}};
constexpr RGBSpace kLinearSRGB{{Transfer::Kind::Linear}, std::nullopt, std::nullopt};
constexpr RGBSpace kSRGB{kSRGBTransfer, std::nullopt, std::nullopt};

const RGBSpace& RGBSpaceNamed(Name name)
{
    switch (name) {
    case Name::GenericRGB:
        return kGenericRGB;
    case Name::AdobeRGB1998:
        return kAdobeRGB;
    case Name::DisplayP3:
        return kDisplayP3;
    case Name::DCIP3:
        return kDCIP3;
    case Name::LinearSRGB:
    case Name::ExtendedLinearSRGB:
        return kLinearSRGB;
    default:
        return kSRGB;
    }
}

template <typename Curve> RGB eachOf(const RGB& color, Curve curve)
{
    return {curve(color[0]), curve(color[1]), curve(color[2])};
}

RGB converted(const RGBSpace& from, const RGB& color, const RGBSpace& to)
{
    if (&from == &to)
        return color;
    auto light = eachOf(color, [&](double value) { return decoded(from.transfer, value); });
    if (from.toSRGB)
        light = from.toSRGB->applied(light);
    if (to.fromSRGB)
        light = to.fromSRGB->applied(light);
    return eachOf(light, [&](double value) { return encoded(to.transfer, value); });
}

/// The grey of the same brightness, encoded as sRGB.
double greyOf(const RGB& color)
{
    if (color[0] == color[1] && color[1] == color[2])
        return color[0];
    const auto light = eachOf(color, [](double value) { return decoded(kSRGBTransfer, value); });
    return encoded(kSRGBTransfer, 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2]);
}

ColorComponents cmykOf(const RGB& color)
{
    const auto black = 1 - std::clamp(std::max({color[0], color[1], color[2]}), 0.0, 1.0);
    if (black == 1)
        return {0, 0, 0, 1};
    const auto ink = [black](double value) { return (1 - value - black) / (1 - black); };
    return {ink(color[0]), ink(color[1]), ink(color[2]), black};
}

bool isExtended(Name name)
{
    return name == Name::ExtendedSRGB || name == Name::ExtendedGenericGamma22Gray
        || name == Name::ExtendedLinearSRGB;
}

ColorComponents unheldComponents(Name space, const RGB& color)
{
    switch (space) {
    case Name::GenericGray:
        return {encoded(kGenericTransfer, decoded(kSRGBTransfer, greyOf(color)))};
    case Name::DeviceGray:
    case Name::GenericGamma22Gray:
    case Name::ExtendedGenericGamma22Gray:
        return {greyOf(color)};
    case Name::GenericCMYK:
    case Name::DeviceCMYK:
        return cmykOf(color);
    default: {
        const auto rgb = converted(kSRGB, color, RGBSpaceNamed(space));
        return {rgb[0], rgb[1], rgb[2]};
    }
    }
}

} // namespace

RGB extendedSRGBFromComponents(Name space, const ColorComponents& components)
{
    switch (space) {
    case Name::GenericGray: {
        const auto grey = encoded(kSRGBTransfer, decoded(kGenericTransfer, components[0]));
        return {grey, grey, grey};
    }
    case Name::DeviceGray:
    case Name::GenericGamma22Gray:
    case Name::ExtendedGenericGamma22Gray:
        return {components[0], components[0], components[0]};
    case Name::GenericCMYK:
    case Name::DeviceCMYK:
        return eachOf({components[0], components[1], components[2]},
                      [&](double ink) { return (1 - ink) * (1 - components[3]); });
    default:
        return converted(RGBSpaceNamed(space), {components[0], components[1], components[2]}, kSRGB);
    }
}

ColorComponents componentsFromExtendedSRGB(Name space, const RGB& color)
{
    auto components = unheldComponents(space, color);
    if (!isExtended(space)) {
        for (auto& component : components)
            component = std::clamp(component, 0.0, 1.0);
    }
    return components;
}

#include "platform/html/CSSColor.h"

#include "platform/html/CSSValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

int byteOf(double component)
{
    return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

double component(unsigned value, unsigned shift)
{
    return static_cast<double>((value >> shift) & 0xFFU) / 255;
}

NSColorRGBA opaqueColor(unsigned rgb)
{
    return {component(rgb, 16), component(rgb, 8), component(rgb, 0), 1};
}

std::optional<NSColorRGBA> colorFromDigits(std::string_view digits)
{
    std::string wide;
    if (digits.size() == 3 || digits.size() == 4) {
        for (const char digit : digits)
            wide.append(2, digit);
        digits = wide;
    }
    unsigned value = 0;
    const auto* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, 16);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    if (digits.size() == 6)
        return opaqueColor(value);
    if (digits.size() != 8)
        return std::nullopt;
    auto color = opaqueColor(value >> 8U);
    color.alpha = component(value, 0);
    return color;
}

std::optional<double> unitValue(std::string_view text, double whole)
{
    const auto number = cssNumber(text);
    if (!number || (!number->unit.empty() && number->unit != "%"))
        return std::nullopt;
    return std::clamp(number->value / (number->unit == "%" ? 100 : whole), 0.0, 1.0);
}

/// The parts between commas; or between blanks, with a slash before the alpha.
std::vector<std::string_view> argumentsOf(std::string_view text)
{
    if (text.find(',') != std::string_view::npos)
        return cssPieces(text, ',');
    auto parts = cssWords(text);
    std::erase(parts, "/");
    return parts;
}

NSColorRGBA colorOfHue(double hue, double saturation, double lightness, double alpha)
{
    const auto chroma = saturation * std::min(lightness, 1 - lightness);
    const auto channel = [&](double shift) {
        const auto place = std::fmod(shift + hue / 30, 12);
        return lightness - chroma * std::max(-1.0, std::min({place - 3, 9 - place, 1.0}));
    };
    return {channel(0), channel(8), channel(4), alpha};
}

std::optional<NSColorRGBA> colorFromFunction(std::string_view name, std::string_view body)
{
    const auto parts = argumentsOf(body);
    if (parts.size() != 3 && parts.size() != 4)
        return std::nullopt;
    const auto alpha = parts.size() == 4 ? unitValue(parts[3], 1) : std::optional(1.0);
    const bool isRGB = name.starts_with("rgb");
    const auto second = unitValue(parts[1], isRGB ? 255 : 100);
    const auto third = unitValue(parts[2], isRGB ? 255 : 100);
    if (!alpha || !second || !third)
        return std::nullopt;
    if (isRGB) {
        const auto first = unitValue(parts[0], 255);
        return first ? std::optional(NSColorRGBA{*first, *second, *third, *alpha}) : std::nullopt;
    }
    const auto hue = cssNumber(parts[0]);
    if (!hue || (!hue->unit.empty() && hue->unit != "deg"))
        return std::nullopt;
    return colorOfHue(std::fmod(std::fmod(hue->value, 360) + 360, 360), *second, *third, *alpha);
}

} // namespace

std::string cssColor(const NSColorRGBA& color)
{
    const auto red = byteOf(color.red);
    const auto green = byteOf(color.green);
    const auto blue = byteOf(color.blue);
    if (color.alpha >= 1)
        return fmt::format("#{:02x}{:02x}{:02x}", red, green, blue);
    return fmt::format("rgba({},{},{},{})", red, green, blue, cssNumberText(std::max(color.alpha, 0.0)));
}

std::optional<NSColorRGBA> colorFromCSS(std::string_view text)
{
    const auto lower = inASCIILowerCase(trimmedCSS(text));
    if (lower == "transparent")
        return NSColorRGBA{0, 0, 0, 0};
    if (lower.starts_with('#'))
        return colorFromDigits(std::string_view(lower).substr(1));
    const auto opening = lower.find('(');
    if (opening != std::string::npos && lower.ends_with(')')) {
        const auto name = std::string_view(lower).substr(0, opening);
        if (name != "rgb" && name != "rgba" && name != "hsl" && name != "hsla")
            return std::nullopt;
        return colorFromFunction(name,
                                 std::string_view(lower).substr(opening + 1, lower.size() - opening - 2));
    }
    const auto named = namedCSSColor(lower);
    return named ? std::optional(opaqueColor(*named)) : std::nullopt;
}

NSColor::Ref nsColorFromCSS(std::string_view text)
{
    const auto color = colorFromCSS(text);
    return color ? NSColor::colorWithSRGBRed(color->red, color->green, color->blue, color->alpha) : nullptr;
}

NSColor::Ref firstColorInCSS(std::string_view text)
{
    for (const auto word : cssWords(text)) {
        if (auto color = nsColorFromCSS(word))
            return color;
    }
    return nullptr;
}

#include "platform/word/WordColors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace {

constexpr double kMostChannel = 255;

constexpr std::array<std::u16string_view, 3> kTextColors{u"textColor", u"controlTextColor", u"labelColor"};

bool isTextColor(const NSColor& color)
{
    return color.catalogNameComponent() == u"System"
        && std::find(kTextColors.begin(), kTextColors.end(), color.colorNameComponent()) != kTextColors.end();
}

/// The channel of a colour that lies on white.
std::uint32_t channelOnWhite(double value, double alpha)
{
    return static_cast<std::uint32_t>(std::lround((value * alpha + 1 - alpha) * kMostChannel));
}

} // namespace

NSColor::Ref colorOfWordColor(const std::optional<WordColor>& color)
{
    if (!color || color->isAutomatic)
        return nullptr;
    const auto channel = [&color](unsigned shift) {
        return static_cast<double>((color->rgb >> shift) & 0xFFU) / kMostChannel;
    };
    return NSColor::colorWithSRGBRed(channel(16), channel(8), channel(0), 1);
}

std::optional<WordColor> wordColorOf(const NSColor::Ref& color)
{
    if (!color)
        return std::nullopt;
    if (isTextColor(*color))
        return WordColor{};
    const auto components = color->deviceRGBComponents();
    if (!components || components->alpha <= 0)
        return std::nullopt;
    const auto channel = [&components](double value) { return channelOnWhite(value, components->alpha); };
    return WordColor{false,
                     channel(components->red) << 16U | channel(components->green) << 8U
                         | channel(components->blue)};
}

std::string wordColorDigits(const WordColor& color)
{
    if (color.isAutomatic)
        return "auto";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string digits;
    for (int shift = 20; shift >= 0; shift -= 4)
        digits += kDigits[(color.rgb >> static_cast<unsigned>(shift)) & 0xFU];
    return digits;
}

void writeWordShading(WordXML& xml, const WordColor& color)
{
    xml.raw("<w:shd w:val=\"clear\" w:color=\"auto\"");
    xml.attribute("w:fill", std::string_view(wordColorDigits(color)));
    xml.raw("/>");
}

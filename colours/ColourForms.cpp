#include "colours/ColourForms.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

namespace {

constexpr std::u16string_view kRed = u"red";
constexpr std::u16string_view kGreen = u"green";
constexpr std::u16string_view kBlue = u"blue";
constexpr std::u16string_view kAlpha = u"alpha";

void appendHexadecimal(std::u16string& text, double component)
{
    // Just below 256, so that 1 is 255 and every step is equally wide.
    constexpr double kSteps = 255.99998474121094;
    for (const auto digit : fmt::format("{:02x}", static_cast<int>(component * kSteps)))
        text.push_back(static_cast<char16_t>(digit));
}

/// Adds one to the last place of a decimal number, away from zero.
void increment(std::string& number)
{
    auto digit = number.size();
    while (digit > 0) {
        auto& character = number[--digit];
        if (character == '.')
            continue;
        if (character == '-') {
            ++digit;
            break;
        }
        if (character != '9') {
            ++character;
            return;
        }
        character = '0';
    }
    number.insert(digit, 1, '1');
}

} // namespace

namespace CVLExtensions {

std::optional<std::u16string> hexadecimalString(const NSColor& color, NSAppearance appearance)
{
    const auto rgba = color.deviceRGBComponents(appearance);
    if (!rgba)
        return std::nullopt;
    std::u16string text = u"#";
    appendHexadecimal(text, rgba->red);
    appendHexadecimal(text, rgba->green);
    appendHexadecimal(text, rgba->blue);
    return text;
}

NSColor::Ref colorSuitableForHexNoAlpha(const NSColor& color, NSAppearance appearance)
{
    const auto rgba = color.deviceRGBComponents(appearance);
    return rgba ? NSColor::colorWithRed(rgba->red, rgba->green, rgba->blue, 1) : nullptr;
}

NSAny::Dictionary propertyListRepresentation(const NSColor& color, NSAppearance appearance)
{
    const auto rgba = color.deviceRGBComponents(appearance);
    if (!rgba)
        return {};
    return {{std::u16string(kRed), NSAny(rgba->red)},
            {std::u16string(kGreen), NSAny(rgba->green)},
            {std::u16string(kBlue), NSAny(rgba->blue)},
            {std::u16string(kAlpha), NSAny(rgba->alpha)}};
}

NSColor::Ref colorFromPropertyListRepresentation(const NSAny::Dictionary& representation)
{
    // Single precision, though the dictionary holds doubles: what is stored elsewhere compares with it.
    const auto component = [&](std::u16string_view key) -> double {
        const auto found = representation.find(key);
        return found == representation.end() ? 0.0F : found->second.floatValue();
    };
    return NSColor::colorWithRed(component(kRed), component(kGreen), component(kBlue), component(kAlpha));
}

std::string decimalNumberForColorComponent(double component)
{
    constexpr std::size_t kDroppedPlaces = 3;
    if (!std::isfinite(component))
        return "NaN";
    auto number = fmt::format("{:.6f}", component);
    const bool isRoundedUp = number[number.size() - kDroppedPlaces] >= '5';
    number.resize(number.size() - kDroppedPlaces);
    if (isRoundedUp)
        increment(number);
    number.resize(number.find_last_not_of('0') + 1);
    if (number.ends_with('.'))
        number.pop_back();
    return number == "-0" ? "0" : number;
}

} // namespace CVLExtensions

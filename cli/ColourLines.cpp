#include "cli/ColourLines.h"

#include "colours/ColourEquality.h"
#include "colours/ColourForms.h"
#include "colours/HighlightColours.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cmath>

namespace {

// Keeps the members in the order in which they are written here.
using JSON = nlohmann::ordered_json;

std::string_view spaceName(const NSColorSpace& space)
{
    switch (space.name()) {
    case NSColorSpace::Name::SRGB:
        return "sRGB";
    case NSColorSpace::Name::GenericRGB:
        return "generic RGB";
    case NSColorSpace::Name::GenericGray:
        return "generic grey";
    case NSColorSpace::Name::GenericGamma22Gray:
        return "grey of gamma 2.2";
    case NSColorSpace::Name::DeviceRGB:
        return "device RGB";
    default:
        return "another space";
    }
}

std::string joined(const std::vector<double>& components)
{
    std::string text;
    for (const auto component : components)
        text += (text.empty() ? "" : " ") + CVLExtensions::decimalNumberForColorComponent(component);
    return text;
}

std::string formLine(std::string_view label, std::string_view value)
{
    return fmt::format("  {:<14}{}", label, value);
}

std::string highlightText(NSInteger type)
{
    const auto name = CVLExtensions::allHighlightColorNames().at(static_cast<std::size_t>(type - 1));
    return fmt::format("type {}, {}", type, UTF8FromUTF16(name));
}

std::string extremeText(const NSColor& color)
{
    if (CVLExtensions::isWhiteColor(color))
        return "white";
    return CVLExtensions::isBlackColor(color) ? "black" : "";
}

/// Two blanks on the colour, as terminals with 24 bits a colour take it.
std::string patch(const NSColorRGBA& color)
{
    const auto byte = [](double component) { return std::lround(component * 255); };
    return fmt::format("\033[48;2;{};{};{}m  \033[0m ", byte(color.red), byte(color.green), byte(color.blue));
}

JSON numbers(const std::vector<double>& components)
{
    return JSON(components);
}

} // namespace

std::vector<std::string> colourLines(const NamedColour& named, NSAppearance appearance, bool isStyled)
{
    const auto& color = *named.color;
    const auto plain = color.colorUsingType(NSColorType::ComponentBased, appearance);
    const auto rgba = plain ? plain->deviceRGBComponents() : std::nullopt;
    if (!rgba)
        return {UTF8FromUTF16(named.name)};
    const auto hexadecimal = UTF8FromUTF16(*CVLExtensions::hexadecimalString(*plain));
    const auto name = UTF8FromUTF16(named.name);
    std::vector<std::string> lines;
    lines.push_back((isStyled ? patch(*rgba) : "")
                    + (name == hexadecimal ? name : name + "  " + hexadecimal));
    lines.push_back(formLine("device RGB", joined({rgba->red, rgba->green, rgba->blue, rgba->alpha})));
    if (plain->colorSpace()->name() != NSColorSpace::Name::SRGB)
        lines.push_back(formLine(spaceName(*plain->colorSpace()), joined(plain->components())));
    if (color.type() == NSColorType::Catalog)
        lines.push_back(formLine("catalog", UTF8FromUTF16(color.catalogNameComponent())));
    if (const auto type = CVLExtensions::highlightColorType(color); type != 0)
        lines.push_back(formLine("highlight", highlightText(type)));
    lines.push_back(formLine("brightness", CVLExtensions::isDarkColorCorvel(*plain) ? "dark" : "light"));
    if (const auto extreme = extremeText(*plain); !extreme.empty())
        lines.push_back(formLine("counts as", extreme));
    return lines;
}

std::string colourJSON(const NamedColour& named, NSAppearance appearance)
{
    const auto& color = *named.color;
    JSON value{{"name", UTF8FromUTF16(named.name)}, {"hex", nullptr}};
    if (const auto hexadecimal = CVLExtensions::hexadecimalString(color, appearance))
        value["hex"] = UTF8FromUTF16(*hexadecimal);
    auto& list = value["propertyList"] = JSON::object();
    const auto representation = CVLExtensions::propertyListRepresentation(color, appearance);
    for (const auto* key : {"red", "green", "blue", "alpha"}) {
        const auto found = representation.find(UTF16FromUTF8(key));
        if (found != representation.end())
            list[key] = found->second.doubleValue();
    }
    const auto plain = color.colorUsingType(NSColorType::ComponentBased, appearance);
    value["colorSpace"] = plain ? JSON(spaceName(*plain->colorSpace())) : JSON();
    value["components"] = plain ? numbers(plain->components()) : JSON();
    value["catalog"]
        = color.type() == NSColorType::Catalog ? JSON(UTF8FromUTF16(color.catalogNameComponent())) : JSON();
    const auto type = CVLExtensions::highlightColorType(color);
    value["highlightType"] = type;
    value["highlightName"] = nullptr;
    if (type != 0)
        value["highlightName"]
            = UTF8FromUTF16(CVLExtensions::allHighlightColorNames().at(static_cast<std::size_t>(type - 1)));
    value["isDark"] = CVLExtensions::isDarkColorCorvel(color, appearance);
    value["isWhite"] = plain && CVLExtensions::isWhiteColor(*plain);
    value["isBlack"] = plain && CVLExtensions::isBlackColor(*plain);
    return value.dump(-1, ' ', false, JSON::error_handler_t::replace);
}

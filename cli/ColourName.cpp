#include "cli/ColourName.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/NSColorList.h"
#include "platform/text/SystemColors.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

/// Two digits a component.
constexpr std::size_t kLongLength = 6;
constexpr std::size_t kLongLengthWithAlpha = 8;
/// One digit a component, which stands for two.
constexpr std::size_t kShortLength = 3;

std::optional<std::uint8_t> digit(char character)
{
    const std::string_view digits = "0123456789abcdef";
    const auto lower
        = character >= 'A' && character <= 'F' ? static_cast<char>(character - 'A' + 'a') : character;
    const auto found = digits.find(lower);
    return found == std::string_view::npos ? std::nullopt : std::optional(static_cast<std::uint8_t>(found));
}

/// The colour of the digits behind "#"; null when they are none.
NSColor::Ref colourOfDigits(std::string_view digits)
{
    const bool isShort = digits.size() == kShortLength;
    if (!isShort && digits.size() != kLongLength && digits.size() != kLongLengthWithAlpha)
        return nullptr;
    std::array<double, 4> components{0, 0, 0, 1};
    const std::size_t width = isShort ? 1 : 2;
    for (std::size_t i = 0; i * width < digits.size(); ++i) {
        const auto high = digit(digits[i * width]);
        const auto low = digit(digits[i * width + width - 1]);
        if (!high || !low)
            return nullptr;
        components[i] = (*high * 16 + *low) / 255.0;
    }
    return NSColor::colorWithRed(components[0], components[1], components[2], components[3]);
}

/// A name without what does not tell it from others.
std::string plainName(std::string_view name)
{
    std::string plain;
    for (const auto character : name) {
        if (character == ' ' || character == '-' || character == '_')
            continue;
        plain.push_back(character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                             : character);
    }
    if (plain.size() > 5 && plain.ends_with("color"))
        plain.resize(plain.size() - 5);
    return plain;
}

bool isNamed(std::u16string_view name, const std::string& wanted)
{
    return plainName(UTF8FromUTF16(name)) == wanted;
}

std::u16string nameInList(const NSColorList& list, std::u16string_view key)
{
    return std::u16string(list.name()).append(u"/").append(key);
}

std::optional<NamedColour> listColourNamed(const std::string& wanted)
{
    for (const auto* list : NSColorList::availableColorLists()) {
        for (const auto key : list->allKeys()) {
            auto name = nameInList(*list, key);
            if (isNamed(key, wanted) || isNamed(name, wanted))
                return NamedColour{std::move(name), list->colorWithKey(key)};
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<NamedColour> colourNamed(std::string_view text)
{
    if (text.starts_with('#')) {
        auto color = colourOfDigits(text.substr(1));
        return color ? std::optional(NamedColour{UTF16FromUTF8(text), std::move(color)}) : std::nullopt;
    }
    const auto wanted = plainName(text);
    for (const auto& each : systemColors()) {
        if (isNamed(each.name, wanted))
            return NamedColour{std::u16string(each.name), NSColor::systemColorNamed(each.name)};
    }
    for (const auto& each : assetColors()) {
        if (isNamed(each.name, wanted))
            return NamedColour{std::u16string(each.name), NSColor::colorNamed(each.name)};
    }
    return listColourNamed(wanted);
}

std::vector<NamedColour> namedColours()
{
    std::vector<NamedColour> colours;
    for (const auto& each : systemColors())
        colours.push_back({std::u16string(each.name), NSColor::systemColorNamed(each.name)});
    for (const auto& each : assetColors())
        colours.push_back({std::u16string(each.name), NSColor::colorNamed(each.name)});
    for (const auto* list : NSColorList::availableColorLists()) {
        for (const auto key : list->allKeys())
            colours.push_back({nameInList(*list, key), list->colorWithKey(key)});
    }
    return colours;
}

std::vector<std::u16string> colourNames()
{
    std::vector<std::u16string> names;
    for (auto& colour : namedColours())
        names.push_back(std::move(colour.name));
    return names;
}

#include "platform/rtf/RTFColorReading.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFColorForms.h"
#include "platform/rtf/RTFLimits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct ReadSpace {
    std::string_view word;
    NSColorSpace::Name name;
};

constexpr std::array kSpaces{ReadSpace{kSRGBWord, NSColorSpace::Name::SRGB},
                             ReadSpace{kGenericRGBWord, NSColorSpace::Name::GenericRGB},
                             ReadSpace{kDisplayP3Word, NSColorSpace::Name::DisplayP3},
                             ReadSpace{kGrayWord, NSColorSpace::Name::GenericGray},
                             ReadSpace{kCMYKWord, NSColorSpace::Name::GenericCMYK}};

/// No colour has more components, with its alpha.
constexpr std::size_t kMostComponents = 5;
constexpr std::size_t kMostNameBytes = 256;

const ReadSpace* spaceOfWord(std::string_view word)
{
    const auto* const found = std::find_if(kSpaces.begin(), kSpaces.end(),
                                           [word](const ReadSpace& space) { return space.word == word; });
    return found == kSpaces.end() ? nullptr : found;
}

double byteValue(RTFParameter parameter)
{
    return std::clamp(parameter.valueOr(0), 0, 255) / 255.0;
}

} // namespace

void RTFColorReading::takePlainWord(std::string_view name, RTFParameter parameter)
{
    if (name == "red")
        m_plain.red = byteValue(parameter);
    else if (name == "green")
        m_plain.green = byteValue(parameter);
    else if (name == "blue")
        m_plain.blue = byteValue(parameter);
    else
        return;
    m_plain.isSet = true;
}

void RTFColorReading::takePlainText(std::string_view text)
{
    for (auto count = std::count(text.begin(), text.end(), ';'); count > 0; --count) {
        const auto entry = std::exchange(m_plain, {});
        if (m_plainColors.size() >= kMostRTFColors)
            return;
        m_plainColors.push_back(
            entry.isSet ? NSColor::colorWithCalibratedRed(entry.red, entry.green, entry.blue, 1) : nullptr);
    }
}

void RTFColorReading::takeExpandedWord(std::string_view name, RTFParameter parameter)
{
    if (spaceOfWord(name))
        m_expanded.space = name;
    else if (name == "c" && m_expanded.components.size() < kMostComponents)
        m_expanded.components.push_back(parameter.valueOr(0) / kColorUnits);
    else if (name == "cname")
        m_expanded.isNamed = true;
}

void RTFColorReading::takeExpandedText(std::string_view text)
{
    for (;;) {
        const auto end = text.find(';');
        if (m_expanded.isNamed && m_expanded.name.size() < kMostNameBytes)
            m_expanded.name += text.substr(0, end);
        if (end == std::string_view::npos)
            return;
        const auto entry = std::exchange(m_expanded, {});
        if (m_expandedColors.size() < kMostRTFColors)
            m_expandedColors.push_back(colorOf(entry));
        text.remove_prefix(end + 1);
    }
}

NSColor::Ref RTFColorReading::colorOf(const ExpandedEntry& entry)
{
    if (entry.isNamed) {
        if (auto known = NSColor::systemColorNamed(UTF16FromUTF8(entry.name)))
            return known;
    }
    const auto* const space = spaceOfWord(entry.space);
    if (!space)
        return nullptr;
    auto components = entry.components;
    const auto colorSpace = NSColorSpace::colorSpaceWithName(space->name);
    if (components.size() == colorSpace->numberOfColorComponents())
        components.push_back(1);
    return NSColor::colorWithColorSpace(colorSpace, components);
}

NSColor::Ref RTFColorReading::colorAt(std::int32_t number) const
{
    if (number < 0)
        return nullptr;
    const auto index = static_cast<std::size_t>(number);
    if (index < m_expandedColors.size() && m_expandedColors[index])
        return m_expandedColors[index];
    return index < m_plainColors.size() ? m_plainColors[index] : nullptr;
}

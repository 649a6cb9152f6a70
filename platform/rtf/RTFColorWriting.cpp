#include "platform/rtf/RTFColorWriting.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFColorForms.h"
#include "platform/rtf/RTFUnits.h"
#include "platform/text/SystemColors.h"

#include <algorithm>

namespace {

struct WrittenSpace {
    std::string_view word;
    NSColorSpace::Name name;
};

/// The space by which a colour of another one is written: of its kind where there is one, else sRGB.
WrittenSpace writtenSpace(NSColorSpace::Name name)
{
    using enum NSColorSpace::Name;
    switch (name) {
    case GenericRGB:
        return {kGenericRGBWord, GenericRGB};
    case DisplayP3:
        return {kDisplayP3Word, DisplayP3};
    case GenericGray:
    case DeviceGray:
    case GenericGamma22Gray:
    case ExtendedGenericGamma22Gray:
        return {kGrayWord, GenericGray};
    case GenericCMYK:
    case DeviceCMYK:
        return {kCMYKWord, GenericCMYK};
    default:
        return {kSRGBWord, SRGB};
    }
}

/// What a colour of any space or name looks like, in sRGB; null for a pattern.
NSColor::Ref shownColor(const NSColor& color)
{
    const auto shown = color.deviceRGBComponents();
    return shown ? NSColor::colorWithSRGBRed(shown->red, shown->green, shown->blue, shown->alpha) : nullptr;
}

/// The colour in the space that it is written in; null for a pattern. Names stand behind what they look like.
NSColor::Ref colorForWriting(const NSColor& color, WrittenSpace& space)
{
    space = {kSRGBWord, NSColorSpace::Name::SRGB};
    if (color.type() != NSColorType::ComponentBased)
        return shownColor(color);
    space = writtenSpace(color.colorSpace()->name());
    const auto target = NSColorSpace::colorSpaceWithName(space.name);
    // The inks of a device are written as they are.
    if (space.name == NSColorSpace::Name::GenericCMYK)
        return NSColor::colorWithColorSpace(target, color.components());
    auto converted = color.colorUsingColorSpace(target);
    return converted ? converted : shownColor(color);
}

std::string expandedEntry(const NSColor::Ref& color, const NSColor& plain, const WrittenSpace& space)
{
    RTFOutput entry;
    entry.word(space.word);
    const auto components = plain.components();
    for (std::size_t index = 0; index + 1 < components.size(); ++index)
        entry.word("c", wholeNumber(components[index] * kColorUnits));
    if (components.back() < 1)
        entry.word("c", wholeNumber(components.back() * kColorUnits));
    if (color->catalogNameComponent() == kSystemCatalogName) {
        entry.word("cname");
        entry.plain(UTF8FromUTF16(color->colorNameComponent()));
    }
    entry.raw(";");
    return entry.takeBytes();
}

std::string plainEntry(const NSColor& color)
{
    const auto generic = color.colorUsingColorSpace(NSColorSpace::genericRGBColorSpace());
    const auto components = generic ? generic->components() : std::vector<double>{0, 0, 0, 1};
    const auto byte = [&components](std::size_t index) { return wholeNumber(components[index] * 255); };
    RTFOutput entry;
    entry.word("red", byte(0));
    entry.word("green", byte(1));
    entry.word("blue", byte(2));
    entry.raw(";");
    return entry.takeBytes();
}

} // namespace

std::int32_t RTFColorWriting::numberOf(const NSColor::Ref& color)
{
    WrittenSpace space{};
    const auto plain = color ? colorForWriting(*color, space) : nullptr;
    if (!plain)
        return 0;
    const auto next = static_cast<std::int32_t>(m_numbers.size()) + kFirst;
    const auto [known, isNew] = m_numbers.try_emplace(expandedEntry(color, *plain, space), next);
    if (isNew) {
        m_expandedEntries += known->first;
        m_plainEntries += plainEntry(*plain);
    }
    return known->second;
}

void RTFColorWriting::write(RTFOutput& output) const
{
    output.raw("{\\colortbl;\\red255\\green255\\blue255;");
    output.raw(m_plainEntries);
    output.raw("}\n{\\*\\expandedcolortbl;;");
    output.raw(m_expandedEntries);
    output.raw("}\n");
}

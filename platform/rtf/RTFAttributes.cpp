#include "platform/rtf/RTFAttributes.h"

#include "platform/rtf/RTFHighlights.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFUnits.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSShadow.h"

#include <initializer_list>

namespace {

void set(NSAttributes& attributes, std::u16string_view name, NSAny value)
{
    if (value)
        attributes.insert_or_assign(std::u16string(name), std::move(value));
}

void setUnlessZero(NSAttributes& attributes, std::u16string_view name, std::int32_t number)
{
    if (number != 0)
        set(attributes, name, number);
}

void setScaled(NSAttributes& attributes, std::u16string_view name, std::int32_t number, double unit)
{
    if (number != 0)
        set(attributes, name, number / unit);
}

void setShadow(NSAttributes& attributes, const RTFShadow& shadow, const RTFColorReading& colors)
{
    if (!shadow.isOn)
        return;
    const auto color = colors.colorAt(shadow.color);
    const auto shown
        = (color ? color : NSColor::blackColor())->colorWithAlphaComponent(shadow.opacity / 255.0);
    set(attributes, NSShadowAttributeName,
        std::make_shared<const NSShadow>(NSSize{pointsFromTwips(shadow.x), pointsFromTwips(shadow.y)},
                                         pointsFromTwips(shadow.blur), shown));
}

} // namespace

std::size_t RTFAttributes::Hash::operator()(const RTFRunFormat& format) const noexcept
{
    const auto& character = format.character;
    std::size_t hash = format.link;
    const auto add = [&hash](std::int64_t number) {
        hash = (hash ^ static_cast<std::size_t>(number)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 29U;
    };
    for (const auto number : {character.font.value_or(-1),
                              character.size,
                              character.color,
                              character.background,
                              character.underline,
                              character.underlineColor,
                              character.strikethrough,
                              character.strikethroughColor,
                              character.baseline,
                              character.superscript,
                              character.kern.value_or(-1),
                              character.ligature,
                              character.shadow.x,
                              character.shadow.y,
                              character.shadow.blur,
                              character.shadow.color,
                              character.strokeWidth,
                              character.strokeColor,
                              character.expansion,
                              character.obliqueness,
                              character.highlightScheme})
        add(number);
    add((character.isBold ? 1 : 0) + (character.isItalic ? 2 : 0) + (character.isHighlighted ? 4 : 0));
    return hash;
}

std::size_t RTFAttributes::numberOfLink(const NSAny& link)
{
    if (link.isNil())
        return 0;
    const bool isLast = !m_links.empty() && m_links.back() == link;
    if (!isLast && m_links.size() < kMostRTFFields)
        m_links.push_back(link);
    return m_links.size();
}

const SharedAttributes& RTFAttributes::attributesFor(const RTFRunFormat& format, bool isCocoa)
{
    auto& known = m_known[format];
    if (!known)
        known = std::make_shared<const NSAttributes>(makeAttributes(format, isCocoa));
    return known;
}

NSAttributes RTFAttributes::makeAttributes(const RTFRunFormat& format, bool isCocoa)
{
    const auto& character = format.character;
    NSAttributes attributes;
    set(attributes, NSFontAttributeName,
        m_fonts.fontAt(character.font, character.size / 1000.0, character.isBold, character.isItalic));
    set(attributes, NSForegroundColorAttributeName, m_colors.colorAt(character.color));
    if (character.background > (isCocoa ? 1 : 0)) {
        const auto ground = m_colors.colorAt(character.background);
        if (ground && ground->alphaComponent() > 0)
            set(attributes, NSBackgroundColorAttributeName, ground);
    }
    setUnlessZero(attributes, NSUnderlineStyleAttributeName, character.underline);
    set(attributes, NSUnderlineColorAttributeName, m_colors.colorAt(character.underlineColor));
    setUnlessZero(attributes, NSStrikethroughStyleAttributeName, character.strikethrough);
    set(attributes, NSStrikethroughColorAttributeName, m_colors.colorAt(character.strikethroughColor));
    setScaled(attributes, NSBaselineOffsetAttributeName, character.baseline, 2);
    setUnlessZero(attributes, NSSuperscriptAttributeName, character.superscript);
    if (character.kern)
        set(attributes, NSKernAttributeName, pointsFromTwips(*character.kern));
    if (character.ligature != 1)
        set(attributes, NSLigatureAttributeName, character.ligature);
    setShadow(attributes, character.shadow, m_colors);
    setScaled(attributes, NSStrokeWidthAttributeName, character.strokeWidth, kStrokeUnits);
    set(attributes, NSStrokeColorAttributeName, m_colors.colorAt(character.strokeColor));
    setScaled(attributes, NSExpansionAttributeName, character.expansion, kShapeUnits);
    setScaled(attributes, NSObliquenessAttributeName, character.obliqueness, kShapeUnits);
    if (character.isHighlighted) {
        set(attributes, NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
        set(attributes, NSTextHighlightColorSchemeAttributeName,
            highlightSchemeName(character.highlightScheme));
    }
    if (format.link > 0)
        set(attributes, NSLinkAttributeName, m_links[format.link - 1]);
    return attributes;
}

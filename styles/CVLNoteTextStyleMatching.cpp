// How a style is recognised in text and given to it.

#include "colours/HighlightAttribute.h"
#include "paragraphs/ParagraphStyles.h"
#include "platform/text/NSAttributeNames.h"
#include "styles/CVLNoteTextStyle.h"

#include <algorithm>

namespace {

using Attributes = CVLNoteTextStyle::Attributes;

void copyAttribute(const Attributes& source, std::u16string_view name, Attributes& target)
{
    const auto found = source.find(name);
    if (found != source.end())
        target.insert_or_assign(found->first, found->second);
}

NSInteger integerOf(const Attributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? 0 : found->second.integerValue();
}

} // namespace

CVLNoteTextStyle::AttributeNames CVLNoteTextStyle::otherAllowedAttributeNames() const
{
    if (m_otherAllowedAttributeNames)
        return *m_otherAllowedAttributeNames;
    AttributeNames names;
    for (const auto name : {NSBackgroundColorAttributeName, NSLigatureAttributeName,
                            NSAttachmentAttributeName, NSLinkAttributeName, NSWritingDirectionAttributeName,
                            NSVerticalGlyphFormAttributeName, CVLNoteTextStyleIdentifierKey})
        names.emplace(name);
    if (!m_applyToParagraph)
        names.emplace(NSParagraphStyleAttributeName);
    return names;
}

CVLNoteTextStyle::Attributes CVLNoteTextStyle::attributes() const
{
    Attributes attributes = {
        {std::u16string(NSFontAttributeName), font()},
        {std::u16string(NSParagraphStyleAttributeName), paragraphStyle()},
        {std::u16string(NSForegroundColorAttributeName), foregroundColor()},
        {std::u16string(NSUnderlineStyleAttributeName), m_underlineStyle},
        {std::u16string(NSStrikethroughStyleAttributeName), m_strikethrough},
    };
    if (auto own = identifier())
        attributes.emplace(CVLNoteTextStyleIdentifierKey, *std::move(own));
    return attributes;
}

bool CVLNoteTextStyle::matchesAttributes(const Attributes& attributes) const
{
    return matchesAttributes(attributes, otherAllowedAttributeNames());
}

bool CVLNoteTextStyle::matchesAttributes(const Attributes& attributes,
                                         const AttributeNames& ignoringAttributes) const
{
    const auto isIgnored
        = [&](const auto& attribute) { return ignoringAttributes.contains(attribute.first); };
    if (std::ranges::all_of(attributes, isIgnored))
        return false;
    return std::ranges::all_of(this->attributes(), [&](const auto& own) {
        const auto other = attributes.find(own.first);
        return isIgnored(own) || other == attributes.end()
            || matchesAttribute(own.first, own.second, other->second);
    });
}

bool CVLNoteTextStyle::matchesAttribute(std::u16string_view name, const NSAny& own, const NSAny& other) const
{
    if (name == NSUnderlineStyleAttributeName || name == NSStrikethroughStyleAttributeName)
        return own.integerValue() == other.integerValue();
    if (name != NSParagraphStyleAttributeName || m_applyToParagraph)
        return own == other;
    const auto style = own.object<NSParagraphStyle>();
    const auto otherStyle = other.object<NSParagraphStyle>();
    return style && otherStyle && CVLExtensions::lineSpacingMatchesStyle(*style, *otherStyle);
}

bool CVLNoteTextStyle::matchesStyle(const CVLNoteTextStyle& style) const
{
    return matchesAttributes(style.attributes(), {});
}

CVLNoteTextStyle::Attributes CVLNoteTextStyle::attributesWithOtherAttributes(const Attributes& others) const
{
    auto result = attributes();
    if (integerOf(others, CVLHighlightTextAttributeName) > 0) {
        copyAttribute(others, NSForegroundColorAttributeName, result);
        copyAttribute(others, NSBackgroundColorAttributeName, result);
        copyAttribute(others, CVLHighlightTextAttributeName, result);
    }
    // The identifier is among the allowed attributes: text that records a style goes on recording that one.
    for (const auto& name : otherAllowedAttributeNames())
        copyAttribute(others, name, result);
    if (m_applyToParagraph)
        return result;
    const auto other = others.find(NSParagraphStyleAttributeName);
    const auto otherStyle = other == others.end() ? nullptr : other->second.object<NSParagraphStyle>();
    if (otherStyle) {
        auto style = otherStyle->mutableCopy();
        CVLExtensions::applyLineSpacingFromStyle(style, *paragraphStyle());
        result.insert_or_assign(std::u16string(NSParagraphStyleAttributeName), style.copy());
    }
    return result;
}

bool CVLNoteTextStyle::shouldSaveToDefaults() const
{
    if (m_type == CVLNoteTextStyleType::Custom)
        return true;
    const auto standard = defaultStyleForType(m_type);
    return standard && !matchesStyle(*standard);
}

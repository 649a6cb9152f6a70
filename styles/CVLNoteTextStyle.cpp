#include "styles/CVLNoteTextStyle.h"

#include "colours/ColourEquality.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"

#include <array>
#include <cstddef>

namespace {

struct StandardStyle {
    /// English, and the key of the localised name.
    std::u16string_view name;
    std::u16string_view identifier;
};

// By type. Subheading came after Monospaced and keeps its number; the identifier of Monospaced ends in
// "Monospace". Both are stored in notes and settings.
constexpr std::array<StandardStyle, 5> kStandardStyles = {{
    {u"Body", u"CVLNoteStyleIdentifierBody"},
    {u"Title", u"CVLNoteStyleIdentifierTitle"},
    {u"Heading", u"CVLNoteStyleIdentifierHeading"},
    {u"Monospaced", u"CVLNoteStyleIdentifierMonospace"},
    {u"Subheading", u"CVLNoteStyleIdentifierSubheading"},
}};

constexpr double kUserFontSize = 12;

// Null for a custom style, and for a number that no standard style has.
const StandardStyle* standardStyle(CVLNoteTextStyleType type)
{
    const auto number = static_cast<NSInteger>(type);
    const bool isStandard = number >= 0 && number < static_cast<NSInteger>(kStandardStyles.size());
    return isStandard ? &kStandardStyles.at(static_cast<std::size_t>(number)) : nullptr;
}

bool isBlackOrWhite(const NSColor& color)
{
    return CVLExtensions::isBlackColor(color) || CVLExtensions::isWhiteColor(color);
}

} // namespace

void CVLNoteTextStyle::setType(CVLNoteTextStyleType type)
{
    if (type == m_type)
        return;
    m_type = type;
    if (type == CVLNoteTextStyleType::Custom && !m_customStyleIdentifier)
        m_customStyleIdentifier = UTF16FromUTF8(NSUUID::UUIDString());
}

std::u16string CVLNoteTextStyle::name() const
{
    if (const auto* standard = standardStyle(m_type))
        return NSBundle::mainBundle().localizedStringForKey(standard->name);
    return m_name.value_or(std::u16string());
}

std::optional<std::u16string> CVLNoteTextStyle::identifier() const
{
    if (const auto* standard = standardStyle(m_type))
        return std::u16string(standard->identifier);
    return m_customStyleIdentifier;
}

NSFont::Ref CVLNoteTextStyle::font() const
{
    return m_font ? m_font : NSFont::userFontOfSize(kUserFontSize);
}

void CVLNoteTextStyle::setFontName(std::u16string_view fontName)
{
    m_font = NSFont::fontWithName(fontName, fontSize());
}

void CVLNoteTextStyle::setFontSize(double fontSize)
{
    m_font = NSFont::fontWithName(fontName(), fontSize);
}

NSParagraphStyle::Ref CVLNoteTextStyle::paragraphStyle() const
{
    return m_paragraphStyle ? m_paragraphStyle : NSParagraphStyle::defaultParagraphStyle();
}

NSColor::Ref CVLNoteTextStyle::foregroundColor() const
{
    if (!m_foregroundColor)
        return standardForegroundColor();
    return isBlackOrWhite(*m_foregroundColor) ? NSColor::textColor() : m_foregroundColor;
}

void CVLNoteTextStyle::setForegroundColor(const NSColor::Ref& color)
{
    m_foregroundColor = color && !isBlackOrWhite(*color) ? color : nullptr;
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::copy() const
{
    auto style = std::make_shared<CVLNoteTextStyle>(*this);
    style->m_otherAllowedAttributeNames.reset();
    return style;
}

NSColor::Ref CVLNoteTextStyle::standardForegroundColor()
{
    return NSColor::textColor();
}

std::set<std::u16string> CVLNoteTextStyle::keyPathsForValuesAffectingValueForKey(std::u16string_view key)
{
    if (key == u"fontName" || key == u"fontSize")
        return {u"font"};
    return {};
}

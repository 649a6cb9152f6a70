// The archived form of a style. The font is kept by name and size, the colour by its components.

#include "colours/ColourForms.h"
#include "platform/foundation/NSCoder.h"
#include "styles/CVLNoteTextStyle.h"

namespace {

constexpr std::string_view kType = "type";
constexpr std::string_view kName = "name";
constexpr std::string_view kFontName = "fontName";
constexpr std::string_view kFontSize = "fontSize";
constexpr std::string_view kParagraphStyle = "paragraphStyle";
constexpr std::string_view kUnderlineStyle = "underlineStyle";
constexpr std::string_view kStrikethrough = "strikethrough";
constexpr std::string_view kForegroundColor = "foregroundColor";
constexpr std::string_view kResetOnNewLine = "resetOnNewLine";
constexpr std::string_view kApplyToParagraph = "applyToParagraph";
constexpr std::string_view kCustomStyleIdentifier = "customStyleIdentifier";

NSAny textOrNil(const std::optional<std::u16string>& text)
{
    return text ? NSAny(*text) : NSAny();
}

} // namespace

const NSClass& CVLNoteTextStyle::classObject()
{
    static constexpr NSClass kClass{"CVLNoteTextStyle", &NSObjectClass, initWithCoder};
    return kClass;
}

const NSClass& CVLNoteTextStyle::classForCoder() const
{
    return classObject();
}

void CVLNoteTextStyle::encodeWithCoder(NSCoder& coder) const
{
    const auto shownFont = font();
    coder.encodeInteger(static_cast<NSInteger>(m_type), kType);
    coder.encodeObject(textOrNil(m_name), kName);
    coder.encodeObject(shownFont->fontName(), kFontName);
    coder.encodeFloat(static_cast<float>(shownFont->pointSize()), kFontSize);
    coder.encodeObject(m_paragraphStyle, kParagraphStyle);
    coder.encodeInteger(m_underlineStyle, kUnderlineStyle);
    coder.encodeInteger(m_strikethrough, kStrikethrough);
    // The colour as it is reported: black and white are never written, the text colour stands for them.
    coder.encodeObject(CVLExtensions::propertyListRepresentation(*foregroundColor()), kForegroundColor);
    coder.encodeBool(m_resetOnNewLine, kResetOnNewLine);
    coder.encodeBool(m_applyToParagraph, kApplyToParagraph);
    coder.encodeObject(textOrNil(m_customStyleIdentifier), kCustomStyleIdentifier);
}

NSAny CVLNoteTextStyle::initWithCoder(NSCoder& coder)
{
    auto style = std::make_shared<CVLNoteTextStyle>();
    style->setType(static_cast<CVLNoteTextStyleType>(coder.decodeIntegerForKey(kType)));
    style->m_name = coder.decodeStringForKey(kName);
    style->decodeFont(coder);
    style->m_paragraphStyle = coder.decodeObjectOfClass(NSParagraphStyle::classObject(), kParagraphStyle)
                                  .object<NSParagraphStyle>();
    style->m_underlineStyle = coder.decodeIntegerForKey(kUnderlineStyle);
    style->m_strikethrough = coder.decodeIntegerForKey(kStrikethrough);
    const auto color
        = coder.decodeObjectOfClasses({&NSDictionaryClass, &NSStringClass, &NSNumberClass}, kForegroundColor);
    if (const auto* representation = color.dictionary())
        style->setForegroundColor(CVLExtensions::colorFromPropertyListRepresentation(*representation));
    style->m_resetOnNewLine = coder.decodeBoolForKey(kResetOnNewLine);
    style->m_applyToParagraph = coder.decodeBoolForKey(kApplyToParagraph);
    style->m_customStyleIdentifier = coder.decodeStringForKey(kCustomStyleIdentifier);
    return style;
}

void CVLNoteTextStyle::decodeFont(NSCoder& coder)
{
    const auto fontName = coder.decodeStringForKey(kFontName);
    const double fontSize = coder.decodeFloatForKey(kFontSize);
    m_font = fontName ? NSFont::fontWithName(*fontName, fontSize) : nullptr;
    if (m_font)
        return;
    // A font that this machine does not have: the one that the style has by default.
    const bool isCustom = m_type == CVLNoteTextStyleType::Custom;
    const auto standard = defaultStyleForType(isCustom ? CVLNoteTextStyleType::Body : m_type);
    m_font = standard ? standard->m_font : nullptr;
}

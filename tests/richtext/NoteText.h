#pragma once

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// A text that is built piece by piece.
class NoteText {
public:
    NoteText& add(std::u16string_view characters, NSAttributes attributes = {})
    {
        m_text.appendAttributedString(NSAttributedString(std::u16string(characters), std::move(attributes)));
        return *this;
    }

    /// With a paragraph style.
    NoteText& add(std::u16string_view characters, const NSMutableParagraphStyle& style)
    {
        return add(characters, {{std::u16string(NSParagraphStyleAttributeName), style.copy()}});
    }

    NoteText& addAttachment(const NSAny& attachment, NSAttributes attributes = {})
    {
        m_text.appendAttributedString(
            NSAttributedString::attributedStringWithAttachment(attachment, std::move(attributes)));
        return *this;
    }

    [[nodiscard]] const NSMutableAttributedString& text() const { return m_text; }

private:
    NSMutableAttributedString m_text;
};

[[nodiscard]] inline NSParagraphStyle::Ref styleAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
}

/// Of the style at a location; none when there is no style.
[[nodiscard]] inline NSParagraphStyle::TextLists listsAt(const NSAttributedString& text, NSUInteger location)
{
    const auto style = styleAt(text, location);
    return style ? style->textLists() : NSParagraphStyle::TextLists();
}

[[nodiscard]] inline NSFont::Ref fontAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSFontAttributeName, location).object<NSFont>();
}

[[nodiscard]] inline NSTextList::Ref makeList(std::u16string_view markerFormat)
{
    return std::make_shared<const NSTextList>(markerFormat);
}

[[nodiscard]] inline NSMutableParagraphStyle styleInLists(NSParagraphStyle::TextLists lists)
{
    NSMutableParagraphStyle style;
    style.setTextLists(std::move(lists));
    return style;
}

[[nodiscard]] inline NSAttributes withFont(std::u16string_view postScriptName, double size)
{
    return {{std::u16string(NSFontAttributeName), NSFont::fontWithName(postScriptName, size)}};
}

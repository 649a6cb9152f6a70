#pragma once

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <string>

[[nodiscard]] inline NSAttributedString textWithFont(std::u16string_view characters, const NSFont::Ref& font)
{
    return NSAttributedString(std::u16string(characters), {{std::u16string(NSFontAttributeName), font}});
}

[[nodiscard]] inline NSMutableAttributedString systemText(std::u16string_view characters, double size = 11)
{
    return NSMutableAttributedString(textWithFont(characters, NSFont::systemFontOfSize(size)));
}

inline void setStyle(NSMutableAttributedString& text, NSLineBreakMode mode,
                     NSTextAlignment alignment = NSTextAlignment::Natural,
                     NSWritingDirection direction = NSWritingDirection::Natural)
{
    NSMutableParagraphStyle style;
    style.setLineBreakMode(mode);
    style.setAlignment(alignment);
    style.setBaseWritingDirection(direction);
    text.addAttribute(NSParagraphStyleAttributeName, style.copy(), {0, text.length()});
}

inline void setColor(NSMutableAttributedString& text, const NSColor::Ref& color, NSRange range)
{
    text.addAttribute(NSForegroundColorAttributeName, color, range);
}

#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/NSStringDrawing.h"
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

/// What texts are drawn on.
inline constexpr NSSize kSheet{300, 100};

[[nodiscard]] inline NSColor::Ref red()
{
    return NSColor::colorWithRed(1, 0, 0, 1);
}

[[nodiscard]] inline NSColor::Ref blue()
{
    return NSColor::colorWithRed(0, 0, 1, 1);
}

[[nodiscard]] inline BitmapPixels drawn(const NSAttributedString& text, NSRect rect, double scale = 1,
                                        Flipped flipped = Flipped::Yes,
                                        NSAppearance appearance = NSAppearance::Light)
{
    return DrawingSurface{kSheet, appearance, flipped}
        .pixels([&](NSGraphicsContext& context) { drawAttributedString(text, rect, context); }, scale)
        .value();
}

[[nodiscard]] inline BitmapPixels drawn(const NSAttributedString& text)
{
    return drawn(text, {{}, kSheet});
}

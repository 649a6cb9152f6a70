#pragma once

#include "platform/foundation/NSGeometry.h"

class NSAttributedString;
class NSGraphicsContext;

/// Text by itself, without a text view. What counts of its attributes: fonts, foreground and background
/// colours, underlines and strike-through with their colours, kerning (between letters, not behind the last)
/// and baseline offset; of a paragraph's style: alignment, line-break mode and writing direction. Attachments
/// take no room. Text without a font is in Helvetica of 12 points, without a colour black.
///
/// Measures are in points and the same for every surface, at every scale; they are those of the fonts that
/// the text is drawn with, which depend on what is installed. Without any font, text has no ink and may have
/// no size. LineLayout.h says how long a line may be.

/// The size of the text on lines as it has them, without breaking any. A line end at the end begins one more
/// line; text without characters has no size.
[[nodiscard]] NSSize sizeOfAttributedString(const NSAttributedString& text);

/// The size that the text takes when its lines are broken or truncated within the width, which may be wider
/// than the widest of them.
[[nodiscard]] NSSize sizeOfAttributedString(const NSAttributedString& text, double width);

/// Draws the text from the top of the rectangle on, upright, its lines broken, truncated or clipped within
/// the rectangle's width. A line that would begin below the rectangle is not drawn; one that begins in it is
/// drawn whole. Nothing in a rectangle without area.
void drawAttributedString(const NSAttributedString& text, NSRect inRect, NSGraphicsContext& context);

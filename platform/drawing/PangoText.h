#pragma once

#include "platform/drawing/PangoHandles.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <string>
#include <vector>

/// Text as Pango takes it.
struct PangoText {
    /// UTF-8 without NULs and noncharacters.
    std::string characters;
    /// Over bytes of `characters`.
    AttributeList attributes;
    /// Where each code unit of the text begins in `characters`; one more for the end.
    std::vector<guint> offsets;
};

/// The characters and the attributes of a piece of text. What is no character (unpaired surrogates, NUL,
/// noncharacters such as U+FFFE) is U+FFFD; attachments leave no ink and take no room; behind a thousand
/// tabs, more of them are spaces. Colours are as in the appearance.
[[nodiscard]] PangoText pangoText(const NSAttributedString& text, NSRange range, NSAppearance appearance);

/// Where a line that is too long is cut; none for what is broken or clipped.
[[nodiscard]] PangoEllipsizeMode ellipsizing(NSLineBreakMode mode);

/// The font of text that has none: the platform's, Helvetica of 12 points.
[[nodiscard]] NSFont::Ref fontOfAttributes(const NSAttributes& attributes);

#pragma once

#include "platform/rtf/RTFListWriting.h"
#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/text/NSParagraphStyle.h"

/// What of the page paragraphs are set by, in twips.
struct RTFPage {
    std::int32_t textWidth = 8640;
    std::int32_t defaultTab = 0;
};

/// The format of a paragraph of the style; lists get their numbers. Tables are the writer's affair. What RTF
/// has no form for is left out: line breaking, tightening, default hyphenation, and blocks that are no cells.
[[nodiscard]] RTFParagraphFormat paragraphFormatOf(const NSParagraphStyle& style, const RTFPage& page,
                                                   RTFListWriting& lists);

/// Writes \pard and what the format has beyond it, as the platform does: a line, then the list's words.
void writeParagraphFormat(RTFOutput& output, const RTFParagraphFormat& format, const RTFPage& page);

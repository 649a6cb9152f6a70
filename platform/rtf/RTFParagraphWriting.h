#pragma once

#include "platform/rtf/RTFListWriting.h"
#include "platform/rtf/RTFPage.h"
#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/text/NSParagraphStyle.h"

/// The format of a paragraph of the style; lists get their numbers. Tables are the writer's affair. What RTF
/// has no form for is left out: line breaking, tightening, default hyphenation, and blocks that are no cells.
[[nodiscard]] RTFParagraphFormat paragraphFormatOf(const NSParagraphStyle& style, const RTFPage& page,
                                                   RTFListWriting& lists);

/// Writes \pard and what the format has beyond it, as the platform does: a line, then the list's words.
void writeParagraphFormat(RTFOutput& output, const RTFParagraphFormat& format, const RTFPage& page);

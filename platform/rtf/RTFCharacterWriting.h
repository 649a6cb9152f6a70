#pragma once

#include "platform/rtf/RTFCharacterFormat.h"
#include "platform/rtf/RTFColorWriting.h"
#include "platform/rtf/RTFFontWriting.h"
#include "platform/text/NSAttributedString.h"

/// The format of text with these attributes; fonts and colours get their numbers. Text without a font is in
/// the platform's default, Helvetica of 12 points. What RTF has no form for is left out: tool tips, text
/// effects, writing directions within a line, vertical forms.
[[nodiscard]] RTFCharacterFormat characterFormatOf(const NSAttributes& attributes, RTFFontWriting& fonts,
                                                   RTFColorWriting& colors);

/// Writes the words that turn text of the one format into text of the other.
void writeCharacterChange(RTFOutput& output, const RTFCharacterFormat& from, const RTFCharacterFormat& to);

#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

/// Text without its attachments, for where only text can go. Each operation is linear in the text.
namespace DynamicColors {

/// Without the characters that carry attachments, of whatever kind.
[[nodiscard]] NSAttributedString attributedStringWithoutAttachments(const NSAttributedString& text);

/// With "[report.pdf]" in place of a file, in the attributes of its character: its name on disk, or the
/// preferred one when it has none there. Attachments without a name, boxes and dividers among them, are gone.
[[nodiscard]] NSAttributedString
attributedStringByReplacingAttachmentsWithNames(const NSAttributedString& text);

/// A file name for a note, from the start of its text (generateFilename). An attachment there counts with its
/// display name without extension, and a space behind it unless white space or the end of the text follows.
[[nodiscard]] std::u16string generateName(const NSAttributedString& text);

} // namespace DynamicColors

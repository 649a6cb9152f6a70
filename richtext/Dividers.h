#pragma once

#include "platform/text/NSAttributedString.h"

/// Between dividers and the three asterisks that stand for them in plain text. Each is one pass.
namespace DynamicColors {

/// Replaces each divider by CVLDividerTextAttachment::replacementString. When there is one, the first three
/// characters of the result lose their attachments, wherever the dividers were: an image that begins the note
/// becomes a bare attachment character. Exports have always done so, and what they hold must not change.
void convertDividersToText(NSMutableAttributedString& text);

/// Puts a new divider, with the line breaks of its attributedString, in place of every line that is
/// CVLDividerReplacementString and nothing else. The line's own end stays behind it.
void convertTextToDividers(NSMutableAttributedString& text);

} // namespace DynamicColors

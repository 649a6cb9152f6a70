#pragma once

#include "platform/text/NSAttributedString.h"

/// Files in a text as icons with names.
namespace DynamicColors {

/// Puts a new CVLFileAttachment in the place of each attachment with a file or contents that is to be shown
/// as an icon: by its type (CVLFileAttachment::shouldUseForFileType), or as a PDF document that a password
/// protects. It takes over the file or the contents, and the attributes that the text has there. A
/// CVLFileAttachment is replaced like any other, and so is a whole run of one attachment, by one character.
void replaceFileAttachmentsInRange(NSMutableAttributedString& text, NSRange range);

/// A copy with the attachments of the whole text replaced.
[[nodiscard]] NSMutableAttributedString attributedStringWithFileAttachments(const NSAttributedString& text);

} // namespace DynamicColors

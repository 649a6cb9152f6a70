#pragma once

#include "platform/text/NSTextAttachment.h"

#include <string>

/// What every attachment can be asked.
namespace CVLExtensions {

/// Whether the attachment is a PDF document that does not open without a password. A document that the empty
/// password opens is not protected, and neither is what is no PDF, whatever its type says.
[[nodiscard]] bool isPasswordProtectedPDF(const NSTextAttachment& attachment);

/// What the attachment is called in front of people: its file's preferred name, else its name on disk,
/// without the extension when the file hides it. Empty without a file, and for a checklist's box.
[[nodiscard]] std::u16string displayName(const NSTextAttachment& attachment);

} // namespace CVLExtensions

#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

namespace DynamicColors {

/// The text as one page of HTML for the body of a message. Images travel within it, whole and as they are, as
/// Base64 data; other files that have a type are left out, for fileURLsForNonImageAttachmentsWrittenToURL to
/// write. Empty when no page can be written.
///
/// Files are known by their names on disk. Of several files of one name the last stands for all. What the
/// page says of a file without a name on disk, or of one without a type, stays as the writer has it. An image
/// that is no regular file has empty data, and one whose type has no MIME type is application/octet-stream.
///
/// Takes time and memory in proportion to the page and the images.
[[nodiscard]] std::u16string htmlStringForSharingToMail(const NSAttributedString& text);

} // namespace DynamicColors

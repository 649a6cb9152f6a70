#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// Attributed strings as rich text, with and without the files that are attached. docs/rich-text.md says what
/// of a text RTF holds.
namespace NSAttributedStringDocumentFormats {

/// A range of the text as RTF, in the platform's own form: the platform's
/// `RTFFromRange:documentAttributes:`. Attachments are left out. Of the document attributes
/// (NSDocumentAttributes.h) the paper, margins, view, default tab interval and what the document says of
/// itself are written. Costs time and memory in proportion to the text.
///
/// None, with the reason in `error` (FileWriteInapplicableStringEncoding of NSCocoaErrorDomain), for another
/// document type than NSRTFTextDocumentType.
[[nodiscard]] std::optional<NSData> RTFFromRange(const NSAttributedString& text, NSRange range,
                                                 const NSAny::Dictionary& documentAttributes = {},
                                                 NSError* error = nullptr);

} // namespace NSAttributedStringDocumentFormats

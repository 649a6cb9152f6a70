#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// Attributed strings as HTML documents.
namespace NSAttributedStringDocumentFormats {

/// A range of the text as an HTML page: the platform's `dataFromRange:documentAttributes:error:` with
/// NSHTMLTextDocumentType. Of the document attributes (NSDocumentAttributes.h) the title is used; a character
/// encoding must be NSUTF8StringEncoding, which is also the default.
///
/// The page is HTML5 with its styles as classes. Files are written as the two tags of HTMLAttachmentTags.h,
/// with nothing of their contents. Text in the system's own text colours takes those of the page's reader,
/// light or dark; so does the whole page when no colour of it is fixed. Control characters are left out.
/// Costs time and memory in proportion to the text.
///
/// None, with the reason in `error` (FileWriteInapplicableStringEncoding of NSCocoaErrorDomain), for another
/// encoding or another document type.
[[nodiscard]] std::optional<NSData> HTMLFromRange(const NSAttributedString& text, NSRange range,
                                                  const NSAny::Dictionary& documentAttributes = {},
                                                  NSError* error = nullptr);

} // namespace NSAttributedStringDocumentFormats

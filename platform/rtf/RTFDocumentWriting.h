#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/rtf/RTFOutput.h"
#include "platform/rtf/RTFPage.h"

/// What of the document attributes paragraphs are set by.
[[nodiscard]] RTFPage pageOf(const NSAny::Dictionary& documentAttributes);

/// Writes what a document says of itself and of its page; nothing for attributes that are not there.
void writeDocumentAttributes(RTFOutput& output, const NSAny::Dictionary& documentAttributes);

#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/rtf/RTFRunWriting.h"
#include "platform/text/NSAttributedString.h"

#include <string>

/// A range of the text as an RTF document. Costs time and memory in proportion to the text.
[[nodiscard]] std::string rtfDocument(const NSAttributedString& text, NSRange range,
                                      const NSAny::Dictionary& documentAttributes,
                                      const RTFAttachmentNamer& nameOfAttachment);

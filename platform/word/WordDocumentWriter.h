#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string>

/// A range of the text as a Word document, a package of Office Open XML. Costs time and memory in proportion
/// to the text and its files. None, with the reason in `error`, when memory is short.
[[nodiscard]] std::optional<std::string> wordDocument(const NSAttributedString& text, NSRange range,
                                                      const NSAny::Dictionary& documentAttributes,
                                                      NSError* error);

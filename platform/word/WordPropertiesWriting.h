#pragma once

#include "platform/foundation/NSAny.h"

#include <string>

/// The parts that say what a document says of itself: title, author, subject, keywords, comment, editor,
/// category and dates in the one, company and manager in the other. Empty when there is nothing to say.
[[nodiscard]] std::string wordCorePropertiesPart(const NSAny::Dictionary& documentAttributes);
[[nodiscard]] std::string wordExtendedPropertiesPart(const NSAny::Dictionary& documentAttributes);

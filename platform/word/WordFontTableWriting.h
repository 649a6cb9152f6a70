#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

/// The part of the fonts of a text's range. For families that other machines do not have it names one that
/// they have, of the same kind.
[[nodiscard]] std::string wordFontTablePart(const NSAttributedString& text, NSRange range);

#pragma once

#include "platform/word/WordAttributeSets.h"

#include <string>

/// The part of the fonts of a text's range. For families that other machines do not have it names one that
/// they have, of the same kind.
[[nodiscard]] std::string wordFontTablePart(const std::vector<WordAttributeSet>& sets);

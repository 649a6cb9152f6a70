#pragma once

#include "platform/foundation/NSRange.h"

#include <string_view>

/// Where the sentence that holds `index` lies, the blanks behind it included; {NSNotFound, 0} when the index
/// is past the end or what is there has neither a letter nor a digit. Line ends that divide paragraphs end a
/// sentence too. The rules are those that hold for all languages, so that a text has the same sentences
/// whoever reads it. Looks no further than the sentence and what decides on its end, but starts at the front
/// of the text.
[[nodiscard]] NSRange sentenceRangeAtIndex(std::u16string_view text, NSUInteger index);

#pragma once

#include "platform/foundation/NSRange.h"

#include <string_view>
#include <vector>

namespace TSExtensions {

/// Where `term` occurs in the text, front to back and without overlaps, as a person searches: case and
/// diacritics do not count, by the rules of the user's locale. The search goes on behind a match only while
/// the match's end plus the term's length lies below the text's length. So an occurrence that ends exactly at
/// the text's end is found only when it is the first; hosts rely on the ranges they have always been given.
[[nodiscard]] std::vector<NSRange> localizedStandardRangesOfString(std::u16string_view text,
                                                                   std::u16string_view term);

/// Whether the text begins with `prefix`, as it is or, when it holds the prefix at all, once white space
/// other than line ends is taken off its ends.
[[nodiscard]] bool hasPrefixIgnoringWhitespace(std::u16string_view text, std::u16string_view prefix);

} // namespace TSExtensions

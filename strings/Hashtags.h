#pragma once

#include "platform/foundation/NSRange.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The tags that a note's text names: "#to_do" gives the tag "to do".
namespace TSExtensions {

/// Whether a tag may be made of digits alone, as in "#2024".
enum class NumericHashtags {
    Rejected,
    Allowed,
};

/// What the user's defaults say: allowed when "CVLAllowNumericHashtags" is true.
[[nodiscard]] NumericHashtags numericHashtags();

/// The names of the tags, front to back, and in `ranges` when it is given the place of each, its "#"
/// included. A tag begins the text or stands behind white space or a line end, is made of letters, marks,
/// numbers and
/// "_", and ends before anything else. "_" stands for a space. Tags may follow one another without a blank:
/// "#one#two". What `ranges` held before is dropped.
[[nodiscard]] std::vector<std::u16string>
tagNamesAndRangesFromHashtags(std::u16string_view text, std::vector<NSRange>* ranges = nullptr,
                              NumericHashtags numeric = numericHashtags());

/// The names without repetitions.
[[nodiscard]] std::set<std::u16string>
uniqueTagNamesFromHashtags(std::u16string_view text, NumericHashtags numeric = numericHashtags());

} // namespace TSExtensions

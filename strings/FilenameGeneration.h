#pragma once

#include <string>
#include <string_view>

/// Names files after texts: a note's first line, a pasted title, a web page's heading.
namespace TSExtensions {

/// generateFilenameTruncatingToPeriod with yes.
[[nodiscard]] std::u16string generateFilename(std::u16string_view text);

/// A safe and short file name from the start of a text: its first line, to the first period when
/// `truncatesToPeriod` is set; else its first sentence; else as many words as pass 128 units. Bullets, and
/// with `truncatesToPeriod` a list number, are taken off its front. At most 255 UTF-16 units, and empty when
/// the text has nothing to name a file after.
[[nodiscard]] std::u16string generateFilenameTruncatingToPeriod(std::u16string_view text,
                                                                bool truncatesToPeriod);

} // namespace TSExtensions

#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <vector>

/// Between the note's own highlights (colours/HighlightAttribute.h) and those of the platform, which other
/// programs understand. The colour schemes Orange, Mint, Blue, Pink and Purple are the types 1 to 5.
namespace DynamicColors {

/// Gives each passage with a platform highlight of the default style and a colour scheme the type of the
/// scheme, 1 for one that is not listed, with the type's colours. The platform's attributes stay.
void convertNSTextHighlightsToCorvelHighlights(NSMutableAttributedString& text);

/// Replaces each of the note's highlights, with its colours, by a platform highlight in the type's scheme;
/// in the default scheme for what is no type.
void convertCorvelHighlightsToNSTextHighlights(NSMutableAttributedString& text);

/// The highlighted passages in order, trimmed of white space and line ends; those of nothing else are left
/// out. A change of type begins a new passage.
[[nodiscard]] std::vector<std::u16string> highlightedStrings(const NSAttributedString& text);

} // namespace DynamicColors

#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <vector>

/// Between the stored and the shown colours of a note's text. Plain black is stored; what is shown is the
/// system's text colour, which follows the light or dark appearance. No appearance is needed: dynamic colours
/// are names until they are drawn.
///
/// Every operation here and in Highlights.h is one pass over the runs.
namespace DynamicColors {

/// Gives the dynamic text colour to text that is black or has no colour. Other colours stay.
void convertToDynamicColors(NSMutableAttributedString& text);
[[nodiscard]] NSAttributedString attributedStringConvertedToDynamicColors(const NSAttributedString& text);

/// Makes text in the dynamic text colour black. Text without a colour stays without, so the two conversions
/// are not each other's inverse: text that had no colour comes back black.
void convertFromDynamicColors(NSMutableAttributedString& text);
/// Converts to dynamic colours, not from them, whatever its name says: those who call it expect the text in
/// its shown colours.
[[nodiscard]] NSAttributedString attributedStringConvertedFromDynamicColors(const NSAttributedString& text);

/// Gives pasted text the dynamic label colour throughout, and removes its background colours except those of
/// the note's own highlights.
void cleanupTextColorsInRange(NSMutableAttributedString& text, NSRange range);

/// The passages that have a background colour other than white and the text background colour, trimmed of
/// white space and line ends; those of nothing else are left out.
[[nodiscard]] std::vector<std::u16string> stringsWithBackgroundColor(const NSAttributedString& text);

} // namespace DynamicColors

#pragma once

#include "platform/text/NSAttributedString.h"

namespace DynamicColors {

/// Turns the paragraph spacing of HTML into the blank lines of notes: every line that has something but white
/// space in it gets a line break "\n" behind its line end, with its attributes. Where a style of the range
/// has spacing, the lines lose theirs, and those that stand before a blank line get no break. Items of lists
/// get none between them, the last item of several does. Behind a carriage return alone the break only
/// completes that line's end.
///
/// Nothing changes when a line of the range is blank already, unless it ends the whole text. What the range
/// holds of a line counts as the line. Gives the range with what was inserted. Linear in the range.
NSRange cleanupHTMLNewlinesInRange(NSMutableAttributedString& text, NSRange range);

} // namespace DynamicColors

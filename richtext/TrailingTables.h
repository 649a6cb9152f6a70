#pragma once

#include "platform/text/NSAttributedString.h"

namespace DynamicColors {

/// Makes it possible to write behind a table that ends the text: appends "\n" with the last character's
/// attributes, but without its paragraph style, so that a plain paragraph follows.
///
/// Of tables that follow one another directly the first counts, unless it comes again: a text that ends with
/// the second of two tables stays as it is.
void fixTrailingTables(NSMutableAttributedString& text);

} // namespace DynamicColors

#pragma once

#include "platform/text/NSAttributedString.h"

/// What the fonts of a line of text make of it, in points.
struct LineMetrics {
    double lineHeight = 0;
    /// Negative, below the baseline.
    double descender = 0;
};

/// The largest line height and the lowest descender among the fonts of the line that holds the index, its
/// line end included. Runs without a font do not count, as boxes have none; a line without any font, an empty
/// one or no text (null) is as the user's default font.
[[nodiscard]] LineMetrics lineMetricsAtIndex(const NSAttributedString* text, NSUInteger index);

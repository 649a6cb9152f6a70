#pragma once

#include "platform/text/NSAttributedString.h"

/// What the fonts of a line of text make of it, in points.
struct LineMetrics {
    double lineHeight = 0;
    /// Negative, below the baseline.
    double descender = 0;
};

/// The largest line height and the lowest descender among the fonts of the line that holds the index, its
/// line end included; for an empty line those of the font at the index. Text without a font is set in the
/// user's default font, and so is no text (null).
[[nodiscard]] LineMetrics lineMetricsAtIndex(const NSAttributedString* text, NSUInteger index);

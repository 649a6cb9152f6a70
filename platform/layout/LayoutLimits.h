#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

/// How far a text's own numbers are followed. What is beyond them is cut to them, what is no number is 0.

/// The largest length of anything in a text, in points: the longest side of a drawing.
inline constexpr double kLargestLength = 100000;
/// Indents leave at least so much of a column that is as wide.
inline constexpr double kNarrowestLine = 20;
/// Columns without a width have this one.
inline constexpr double kNarrowestColumn = 1;
/// The tab stops of a paragraph that count.
inline constexpr std::size_t kMaximumTabStops = 500;
/// So much of a line is set at once, in UTF-16 code units: time and memory stay in proportion to the text.
inline constexpr std::size_t kLongestPiece = 4000;

/// And so much of its height, by what its letters should need: what is on a page is set again for that page,
/// so a piece should not go on over many. But never less than the shortest piece.
inline constexpr double kHighestPiece = 20000;
inline constexpr std::size_t kShortestPiece = 16;

/// So many attachments at the most: a cell may look at all of its line.
inline constexpr std::size_t kMostAttachments = 100;

/// Documents have no more pages than this.
inline constexpr std::size_t kMostPages = 50000;

[[nodiscard]] inline double boundedLength(double length, double low = 0, double high = kLargestLength)
{
    return std::isfinite(length) ? std::clamp(length, low, high) : std::clamp(0.0, low, high);
}

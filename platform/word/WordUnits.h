#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// The numbers of WordprocessingML that lengths in points become: whole, and within what word processors
/// take.

/// The nearest whole number within the bounds; `least` for what is no number.
[[nodiscard]] inline std::int64_t wordUnits(double value, std::int64_t least, std::int64_t most)
{
    if (std::isnan(value))
        return least;
    return std::llround(std::clamp(value, static_cast<double>(least), static_cast<double>(most)));
}

/// Twenty-two inches, the longest length there is.
inline constexpr std::int64_t kMostWordTwips = 31'680;

inline constexpr double kWordTwipsPerPoint = 20;
inline constexpr double kWordDrawingUnitsPerPoint = 12'700;

/// Twentieths of a point, in both directions.
[[nodiscard]] inline std::int64_t wordTwips(double points)
{
    return std::isnan(points) ? 0 : wordUnits(points * kWordTwipsPerPoint, -kMostWordTwips, kMostWordTwips);
}

/// Half points, of a font's size: from 1 point to 1,638.
[[nodiscard]] inline std::int64_t wordFontSize(double points)
{
    return wordUnits(points * 2, 2, 3'276);
}

/// Eighths of a point, of a line: from a quarter of a point to 12 points.
[[nodiscard]] inline std::int64_t wordLineWidth(double points)
{
    return wordUnits(points * 8, 2, 96);
}

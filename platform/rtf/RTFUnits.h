#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// The numbers of RTF: whole, of 32 bits. Lengths are twips, twentieths of a point.

/// The nearest whole number, held to what others read without overflow; 0 for what is no number.
[[nodiscard]] inline std::int32_t wholeNumber(double value)
{
    constexpr double kMost = 1'000'000'000;
    return std::isnan(value) ? 0 : static_cast<std::int32_t>(std::lround(std::clamp(value, -kMost, kMost)));
}

inline constexpr double kTwipsOfPoint = 20;

[[nodiscard]] inline std::int32_t twipsFromPoints(double points)
{
    return wholeNumber(points * kTwipsOfPoint);
}

[[nodiscard]] inline double pointsFromTwips(std::int32_t twips)
{
    return twips / kTwipsOfPoint;
}

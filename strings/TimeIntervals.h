#pragma once

#include <string>

namespace TSExtensions {

/// How much time remains, in the largest unit of which at least one whole is left, in the user's language: "2
/// days remaining". Days, hours and minutes are rounded down, seconds up. What is negative or no number
/// counts as 0; what exceeds the platform's whole numbers of days, as the largest of them.
[[nodiscard]] std::u16string stringForTimeInterval(double seconds);

} // namespace TSExtensions

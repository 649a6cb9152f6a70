#pragma once

#include <string_view>

/// Underlines as NSUnderlineStyleAttributeName has them, and the format's names of them.

inline constexpr int kWordSingleLine = 1;
inline constexpr int kWordDoubleLine = 9;

/// The style of a name. Waves have no counterpart and become lines of their weight, as do long dashes dashes;
/// names that are not known are single lines.
[[nodiscard]] int wordUnderlineNamed(std::string_view name);

/// The name of a style; of one that has none, that of a line of the same weight.
[[nodiscard]] std::string_view wordUnderlineName(int style);

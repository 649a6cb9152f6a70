#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The components of colours as archives write them: decimal numbers with a space between, in ASCII.

/// The longest text that is read; the platform writes less than a quarter of that.
inline constexpr std::size_t kMaximumComponentTextLength = 512;

/// The numbers, which are finite. NUL bytes at the end are passed over, and blanks around the numbers. None
/// when the text is too long or holds anything else, or their count is neither `count` nor one more.
[[nodiscard]] std::optional<std::vector<double>> componentsFromText(std::string_view text, std::size_t count);

/// Ten significant digits each, whole numbers without a point.
[[nodiscard]] std::string textFromComponents(std::span<const double> components);

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Targets are read as far as this, with their parentheses and titles.
inline constexpr std::size_t kMostMarkdownTargetUnits = 2048;

/// What stands in parentheses behind the text of a link.
struct MarkdownTarget {
    /// Without escapes and angle brackets.
    std::u16string text;
    /// With both parentheses, and with a title, which is left out.
    std::size_t length = 0;
};

/// None when the text does not begin with a parenthesis, a target, perhaps a title in quotation marks, and
/// the other parenthesis.
[[nodiscard]] std::optional<MarkdownTarget> markdownTargetAtStart(std::u16string_view text);

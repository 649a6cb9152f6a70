#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

/// Finds a pattern's occurrences by the algorithm of Knuth, Morris and Pratt: one pass over the text,
/// whatever pattern and text are, even when candidates are turned down.
class PatternSearch {
public:
    explicit PatternSearch(std::u16string_view pattern);

    [[nodiscard]] std::size_t length() const { return m_pattern.size(); }

    /// Where the first occurrence at or behind `from` begins that `accepts(start)` takes;
    /// std::u16string_view::npos without one, and for an empty pattern.
    template <std::predicate<std::size_t> Accepts>
    [[nodiscard]] std::size_t find(std::u16string_view text, std::size_t from, Accepts accepts) const;

    [[nodiscard]] std::size_t find(std::u16string_view text, std::size_t from = 0) const
    {
        return find(text, from, [](std::size_t /*start*/) { return true; });
    }

private:
    /// How many units are matched once `unit` follows `matched` of them.
    [[nodiscard]] std::size_t advanced(std::size_t matched, char16_t unit) const;

    std::u16string m_pattern;
    /// For each prefix of the pattern, the length of the longest proper prefix that is also its end.
    std::vector<std::size_t> m_borders;
};

template <std::predicate<std::size_t> Accepts>
std::size_t PatternSearch::find(std::u16string_view text, std::size_t from, Accepts accepts) const
{
    if (m_pattern.empty())
        return std::u16string_view::npos;
    std::size_t matched = 0;
    for (std::size_t position = from; position < text.size(); ++position) {
        matched = advanced(matched, text[position]);
        if (matched == m_pattern.size() && accepts(position + 1 - matched))
            return position + 1 - matched;
    }
    return std::u16string_view::npos;
}

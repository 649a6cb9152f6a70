#include "platform/foundation/PatternSearch.h"

PatternSearch::PatternSearch(std::u16string_view pattern)
    : m_pattern(pattern)
{
    m_borders.reserve(pattern.size());
    for (std::size_t index = 0; index < pattern.size(); ++index)
        m_borders.push_back(index == 0 ? 0 : advanced(m_borders[index - 1], pattern[index]));
}

std::size_t PatternSearch::advanced(std::size_t matched, char16_t unit) const
{
    if (matched == m_pattern.size())
        matched = m_borders[matched - 1];
    while (matched > 0 && m_pattern[matched] != unit)
        matched = m_borders[matched - 1];
    return m_pattern[matched] == unit ? matched + 1 : 0;
}

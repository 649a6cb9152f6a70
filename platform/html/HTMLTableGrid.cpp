#include "platform/html/HTMLTableGrid.h"

#include <algorithm>

NSUInteger HTMLTableGrid::nextColumn()
{
    while (m_column < m_freeFrom.size() && m_freeFrom[m_column] > row())
        ++m_column;
    return std::min(m_column, kMostColumns - 1);
}

void HTMLTableGrid::place(NSUInteger column, NSUInteger columnSpan, NSUInteger rowSpan)
{
    column = std::min(column, kMostColumns - 1);
    const auto end = column + std::clamp<NSUInteger>(columnSpan, 1, kMostColumns - column);
    const auto freeFrom = row() + std::clamp<NSUInteger>(rowSpan, 1, kMostRowsSpanned);
    if (m_freeFrom.size() < end)
        m_freeFrom.resize(end, 0);
    for (auto taken = column; taken < end; ++taken)
        m_freeFrom[taken] = std::max(m_freeFrom[taken], freeFrom);
    m_column = end;
}

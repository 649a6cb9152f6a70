#include "markdown/MarkdownTableWriter.h"

#include "markdown/MarkdownTable.h"

#include <algorithm>
#include <utility>

namespace {

/// Each cell may have so many empty ones written before it.
constexpr NSInteger kMostColumns = 128;

std::u16string delimiterRow(const std::vector<NSTextAlignment>& alignments)
{
    std::u16string row;
    for (const auto alignment : alignments)
        row.append(u"| ").append(markdownDelimiterCell(alignment)).append(u" ");
    return row.append(u"|\n");
}

} // namespace

void MarkdownTableWriter::add(const NSTextTableBlock& cell, std::u16string_view words,
                              NSTextAlignment alignment)
{
    m_table = cell.table();
    if (m_rows.empty() || m_row != cell.startingRow()) {
        m_rows.emplace_back();
        m_cell = nullptr;
    }
    m_row = cell.startingRow();
    if (std::exchange(m_cell, &cell) != &cell)
        addCell(cell, alignment);
    auto& written = m_rows.back().back();
    if (!written.empty() && !words.empty())
        written.append(u"<br>");
    written.append(words);
}

void MarkdownTableWriter::addCell(const NSTextTableBlock& cell, NSTextAlignment alignment)
{
    auto& row = m_rows.back();
    const auto column
        = static_cast<std::size_t>(std::clamp<NSInteger>(cell.startingColumn(), 0, kMostColumns));
    row.resize(std::max(row.size(), column) + 1);
    const auto span = static_cast<std::size_t>(std::clamp<NSInteger>(cell.columnSpan(), 1, kMostColumns));
    m_width = std::max(m_width, row.size() - 1 + span);
    if (m_rows.size() > 2)
        return;
    m_alignments.resize(std::max(m_alignments.size(), row.size()), NSTextAlignment::Natural);
    m_alignments[row.size() - 1] = alignment;
}

std::u16string MarkdownTableWriter::finish()
{
    auto rows = std::exchange(m_rows, {});
    const auto width = std::exchange(m_width, 0);
    auto alignments = std::exchange(m_alignments, {});
    alignments.resize(width, NSTextAlignment::Natural);
    m_table = nullptr;
    m_cell = nullptr;
    if (rows.empty())
        return {};
    rows.front().resize(width);
    std::u16string table;
    for (const auto& row : rows) {
        for (const auto& cell : row)
            table.append(u"| ").append(cell).append(u" ");
        table.append(u"|\n");
        if (&row == &rows.front())
            table.append(delimiterRow(alignments));
    }
    table.pop_back();
    return table;
}

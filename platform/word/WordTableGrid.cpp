#include "platform/word/WordTableGrid.h"

#include <algorithm>
#include <utility>

namespace {

/// Word processors have no more; cells beyond them are one column wide.
constexpr std::size_t kMostColumns = 63;
constexpr NSInteger kMostRows = 32'767;
constexpr double kLeastColumnWidth = 18;

bool isInTable(const WordTextParagraph& paragraph, const WordTextParagraph& first, std::size_t level)
{
    if (paragraph.cells.size() <= level)
        return false;
    const auto outerEnd = first.cells.begin() + static_cast<std::ptrdiff_t>(level);
    return std::equal(first.cells.begin(), outerEnd, paragraph.cells.begin())
        && paragraph.cells[level]->table() == first.cells[level]->table();
}

std::size_t columnOf(const NSTextTableBlock& cell)
{
    return static_cast<std::size_t>(
        std::clamp<NSInteger>(cell.startingColumn(), 0, static_cast<NSInteger>(kMostColumns) - 1));
}

} // namespace

WordTableGrid::WordTableGrid(const WordTextParagraphs& paragraphs, const WordTextParagraph& first,
                             std::size_t level)
{
    const NSTextTableBlock* last = nullptr;
    std::optional<WordTextParagraph> next = first;
    for (; next && isInTable(*next, first, level); next = paragraphs.paragraphAt(next->end)) {
        const auto& cell = *next->cells[level];
        if (&cell == last)
            continue;
        if (!last || last->startingRow() != cell.startingRow()) {
            endRow();
            beginRow();
        }
        addCell(cell);
        last = &cell;
    }
    endRow();
    for (auto& row : m_rows) {
        const auto& behind = row.places.back();
        row.columnsBehind = m_columnCount - std::min(m_columnCount, behind.column + behind.form.columnCount);
    }
}

void WordTableGrid::beginRow()
{
    m_rows.emplace_back();
    m_column = 0;
}

/// Fills the columns up to one with what reaches into them from above, and with places without cells.
void WordTableGrid::fillUpTo(std::size_t column)
{
    auto& row = m_rows.back();
    while (m_column < column) {
        const auto spanned = m_column < m_spans.size() && m_spans[m_column].rowsLeft > 0;
        if (!spanned && row.places.empty()) {
            ++row.columnsBefore;
            ++m_column;
            continue;
        }
        Place place;
        place.column = m_column;
        if (spanned) {
            auto& span = m_spans[m_column];
            --span.rowsLeft;
            place.form = {span.cell, span.columnCount, span.rowsLeft > 0, true};
        }
        m_column += place.form.columnCount;
        row.places.push_back(place);
    }
}

void WordTableGrid::addCell(const NSTextTableBlock& cell)
{
    fillUpTo(columnOf(cell));
    // What comes from above may take this place too.
    while (m_column < m_spans.size() && m_spans[m_column].rowsLeft > 0)
        fillUpTo(m_column + 1);
    const auto room = m_column < kMostColumns ? kMostColumns - m_column : 1;
    const auto columns
        = static_cast<std::size_t>(std::clamp<NSInteger>(cell.columnSpan(), 1, static_cast<NSInteger>(room)));
    const auto rowsLeft = std::clamp<NSInteger>(cell.rowSpan(), 1, kMostRows) - 1;
    m_rows.back().places.push_back({{&cell, columns, rowsLeft > 0, false}, m_column});
    m_hasWidths = m_hasWidths || cell.contentWidth().value > 0;
    m_spans.resize(std::max(m_spans.size(), m_column + columns));
    for (auto column = m_column; column < m_column + columns; ++column)
        m_spans[column] = {};
    m_spans[m_column] = {&cell, columns, rowsLeft};
    m_column += columns;
}

void WordTableGrid::endRow()
{
    if (m_rows.empty())
        return;
    const auto last
        = std::find_if(m_spans.rbegin(), m_spans.rend(), [](const Span& span) { return span.rowsLeft > 0; });
    // Those of this row have not come from above.
    auto end = static_cast<std::size_t>(m_spans.rend() - last);
    if (end > m_column)
        fillUpTo(end);
    m_columnCount = std::max(m_columnCount, m_column);
}

std::vector<double> WordTableGrid::columnWidths(double width) const
{
    std::vector<double> widths(m_columnCount);
    for (const auto& row : m_rows) {
        for (const auto& place : row.places) {
            const auto own = place.form.cell ? place.form.cell->contentWidth() : NSTextBlock::Value{};
            if (place.form.columnCount != 1 || own.value <= 0 || place.column >= m_columnCount)
                continue;
            const bool isPart = own.type == NSTextBlockValueType::Percentage;
            widths[place.column] = isPart ? width * std::min(own.value, 100.0) / 100 : own.value;
        }
    }
    const auto unknown = std::count(widths.begin(), widths.end(), 0.0);
    auto rest = width;
    for (const auto known : widths)
        rest -= known;
    const auto share = unknown > 0 ? std::max(rest / static_cast<double>(unknown), kLeastColumnWidth) : 0;
    std::replace(widths.begin(), widths.end(), 0.0, share);
    return widths;
}

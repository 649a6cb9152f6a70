#include "platform/layout/TableFlow.h"

#include "platform/layout/LayoutLimits.h"
#include "platform/layout/TableColumns.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace {

constexpr NSInteger kMaximumRow = 1000000000;

struct Cell {
    std::shared_ptr<const NSTextTableBlock> block;
    TextFlow::Paragraphs paragraphs;
    std::size_t column = 0;
    /// Behind the last one.
    std::size_t columnEnd = 0;
    std::size_t row = 0;
    std::size_t rowEnd = 0;
    BlockGeometry geometry;
    /// With all that is around the content.
    double neededHeight = 0;
    double contentHeight = 0;
    std::size_t placedBlock = 0;
    TextFlow::Mark from = {};
    TextFlow::Mark to = {};
};

class Table {
public:
    Table(TextFlow& flow, NSTextTable::Ref table, TextFlow::Paragraphs paragraphs, std::size_t depth,
          double columnWidth)
        : m_flow(flow)
        , m_paragraphs(paragraphs)
        , m_depth(depth)
        , m_table(std::move(table))
        , m_geometry(*m_table, columnWidth)
        , m_width(contentWidth(*m_table, columnWidth, columnWidth - m_geometry.horizontal()))
    {
        findCells();
        findRows();
        findColumns();
    }

    double place(NSPoint corner)
    {
        const auto index = m_flow.places().blocks.size();
        m_flow.places().blocks.push_back({rangeOf(m_paragraphs), m_table, {}, m_geometry.border});
        const NSPoint content{corner.x + m_geometry.left(), corner.y + m_geometry.top()};
        for (auto& cell : m_cells)
            placeCell(cell, content);
        const auto tops = rowTops();
        for (const auto& cell : m_cells)
            moveCell(cell, tops);
        const auto height = std::max(contentHeight(*m_table, tops.back()), 0.0) + m_geometry.vertical();
        m_flow.places().blocks[index].rect
            = {{corner.x + m_geometry.margin.left, corner.y + m_geometry.margin.top},
               {m_edges.back() + m_geometry.border.horizontal() + m_geometry.padding.horizontal(),
                height - m_geometry.margin.vertical()}};
        return height;
    }

private:
    [[nodiscard]] std::shared_ptr<const NSTextTableBlock> cellOf(const FlowParagraph& paragraph) const
    {
        return std::static_pointer_cast<const NSTextTableBlock>(paragraph.style->textBlocks()[m_depth]);
    }

    void findCells()
    {
        for (std::size_t i = 0; i < m_paragraphs.size();) {
            const auto block = cellOf(m_paragraphs[i]);
            auto end = i + 1;
            while (end < m_paragraphs.size() && cellOf(m_paragraphs[end]) == block)
                ++end;
            Cell cell{block, m_paragraphs.subspan(i, end - i), 0, 0, 0, 0, BlockGeometry(*block, m_width)};
            const auto column = std::clamp<NSInteger>(block->startingColumn(), 0, kMaximumColumns - 1);
            const auto span = std::clamp<NSInteger>(block->columnSpan(), 1, kMaximumColumns - column);
            cell.column = static_cast<std::size_t>(column);
            cell.columnEnd = static_cast<std::size_t>(column + span);
            m_cells.push_back(std::move(cell));
            i = end;
        }
    }

    /// Rows count as those in which cells begin.
    void findRows()
    {
        std::map<NSInteger, std::size_t> rows;
        const auto startOf = [](const Cell& cell) {
            return std::clamp<NSInteger>(cell.block->startingRow(), 0, kMaximumRow);
        };
        for (const auto& cell : m_cells)
            rows[startOf(cell)] = 0;
        for (auto& [start, index] : rows)
            index = m_rowCount++;
        for (auto& cell : m_cells) {
            const auto start = startOf(cell);
            const auto end = start + std::clamp<NSInteger>(cell.block->rowSpan(), 1, kMaximumRow);
            const auto behind = rows.lower_bound(end);
            cell.row = rows[start];
            cell.rowEnd = behind == rows.end() ? m_rowCount : behind->second;
            leaveBordersToNeighbours(cell);
        }
    }

    void leaveBordersToNeighbours(Cell& cell) const
    {
        if (!m_table->collapsesBorders())
            return;
        if (cell.column > 0)
            cell.geometry.border.left = 0;
        if (cell.row > 0)
            cell.geometry.border.top = 0;
    }

    void findColumns()
    {
        auto count = std::min(m_table->numberOfColumns(), static_cast<NSUInteger>(kMaximumColumns));
        for (const auto& cell : m_cells)
            count = std::max(count, cell.columnEnd);
        std::vector<TableColumn> columns(count);
        for (const auto& cell : m_cells) {
            if (cell.columnEnd - cell.column == 1)
                tellWidth(cell, columns[cell.column]);
        }
        for (const auto& cell : m_cells) {
            if (cell.columnEnd - cell.column == 1)
                measure(cell, columns[cell.column]);
        }
        for (const auto width : columnWidths(columns, m_width))
            m_edges.push_back(m_edges.back() + width);
    }

    void tellWidth(const Cell& cell, TableColumn& column) const
    {
        const auto value = cell.block->contentWidth();
        auto width = pointsOf(value, m_width);
        if (width <= 0)
            return;
        // A part of the table is one of the whole column, points are of the content.
        if (value.type == NSTextBlockValueType::Absolute)
            width += cell.geometry.horizontal();
        column.width = std::max(column.width.value_or(0), width);
    }

    void measure(const Cell& cell, TableColumn& column) const
    {
        if (column.width || m_table->layoutAlgorithm() == NSTextTableLayoutAlgorithm::Fixed)
            return;
        const auto natural = m_flow.naturalWidth(cell.paragraphs, m_width) + cell.geometry.horizontal();
        column.natural = std::max(column.natural, natural);
    }

    void placeCell(Cell& cell, NSPoint corner)
    {
        const auto left = corner.x + m_edges[cell.column];
        const auto width = m_edges[cell.columnEnd] - m_edges[cell.column];
        const auto content = std::max(width - cell.geometry.horizontal(), kNarrowestColumn);
        const auto& [margin, border, padding] = cell.geometry;
        cell.placedBlock = m_flow.places().blocks.size();
        m_flow.places().blocks.push_back(
            {rangeOf(cell.paragraphs), cell.block, {{left + margin.left, corner.y}, {}}, border});
        m_flow.places().blocks.back().rect.size.width = width - margin.horizontal();
        cell.from = m_flow.mark();
        cell.contentHeight
            = m_flow.place(cell.paragraphs, m_depth + 1, {left + cell.geometry.left(), corner.y}, content);
        cell.to = m_flow.mark();
        cell.neededHeight = contentHeight(*cell.block, cell.contentHeight) + cell.geometry.vertical();
    }

    /// Where each row begins, and behind the last one.
    [[nodiscard]] std::vector<double> rowTops() const
    {
        std::vector<const Cell*> byEnd;
        for (const auto& cell : m_cells)
            byEnd.push_back(&cell);
        std::stable_sort(byEnd.begin(), byEnd.end(),
                         [](const Cell* one, const Cell* other) { return one->rowEnd < other->rowEnd; });
        std::vector<double> tops(m_rowCount + 1);
        std::size_t known = 0;
        for (const auto* cell : byEnd) {
            while (known < cell->rowEnd) {
                ++known;
                tops[known] = tops[known - 1];
            }
            tops[known] = std::max(tops[known], tops[cell->row] + cell->neededHeight);
        }
        return tops;
    }

    /// From the table's upper edge, where its content was placed, into its row.
    void moveCell(const Cell& cell, const std::vector<double>& tops)
    {
        const auto height = tops[cell.rowEnd] - tops[cell.row];
        const auto room = std::max(height - cell.geometry.vertical() - cell.contentHeight, 0.0);
        auto offset = tops[cell.row] + cell.geometry.top();
        if (cell.block->verticalAlignment() == NSTextBlockVerticalAlignment::Middle)
            offset += room / 2;
        if (cell.block->verticalAlignment() == NSTextBlockVerticalAlignment::Bottom)
            offset += room;
        m_flow.move(cell.from, cell.to, offset);
        auto& placed = m_flow.places().blocks[cell.placedBlock];
        placed.rect.origin.y += tops[cell.row] + cell.geometry.margin.top;
        placed.rect.size.height = height - cell.geometry.margin.vertical();
    }

    TextFlow& m_flow;
    TextFlow::Paragraphs m_paragraphs;
    std::size_t m_depth;
    NSTextTable::Ref m_table;
    BlockGeometry m_geometry;
    double m_width;
    std::vector<Cell> m_cells;
    std::size_t m_rowCount = 0;
    std::vector<double> m_edges{0.0};
};

} // namespace

double placeTable(TextFlow& flow, const NSTextTable::Ref& table, TextFlow::Paragraphs paragraphs,
                  std::size_t depth, NSPoint corner, double width)
{
    return Table(flow, table, paragraphs, depth, width).place(corner);
}

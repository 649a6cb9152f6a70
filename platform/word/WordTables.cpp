#include "platform/word/WordTables.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/word/WordCellBlocks.h"

#include <algorithm>

namespace {

/// Tables within more tables than these, and cells beyond these, are kept as plain paragraphs.
constexpr std::size_t kMostTables = 16;
constexpr std::size_t kMostCells = 100'000;

/// Puts a block around the blocks that the paragraphs of a range have.
void surround(NSMutableAttributedString& text, NSRange range, const NSTextBlock::Ref& block)
{
    text.enumerateAttribute(
        NSParagraphStyleAttributeName, range, {}, [&](const NSAny& value, NSRange run, bool& /*stop*/) {
            const auto style = value.object<NSParagraphStyle>();
            auto changed = style ? NSMutableParagraphStyle(*style) : NSMutableParagraphStyle();
            NSParagraphStyle::TextBlocks blocks{block};
            for (const auto& inner : changed.textBlocks())
                blocks.push_back(inner);
            changed.setTextBlocks(std::move(blocks));
            text.addAttribute(NSParagraphStyleAttributeName, NSAny(changed.copy()), run);
        });
}

} // namespace

void WordTables::beginTable()
{
    Table table;
    table.style = m_styles.defaultTableStyle();
    table.isFlat = m_open.size() >= kMostTables;
    m_open.push_back(std::move(table));
}

void WordTables::setTableProperties(const WordTableProperties& properties)
{
    if (m_open.empty())
        return;
    auto& table = m_open.back();
    if (const auto* const style = m_styles.style(properties.style))
        table.style = style;
    table.properties = table.style ? table.style->table : WordTableProperties{};
    table.properties.overrideWith(properties);
}

void WordTables::beginRow()
{
    if (m_open.empty())
        return;
    auto& table = m_open.back();
    ++table.row;
    table.column = 0;
}

void WordTables::setRowProperties(const WordTableProperties& properties)
{
    if (!m_open.empty())
        m_open.back().column = properties.columnsBefore;
}

void WordTables::beginCell()
{
    if (m_open.empty())
        return;
    auto& table = m_open.back();
    table.isInCell = true;
    table.cellStart = m_builder.length();
    table.cellProperties = {};
    table.row = std::max(table.row, 0);
}

void WordTables::setCellProperties(const WordTableProperties& properties)
{
    if (!m_open.empty())
        m_open.back().cellProperties = properties;
}

void WordTables::endCell()
{
    if (!isInCell())
        return;
    auto& table = m_open.back();
    table.isInCell = false;
    if (!table.isFlat && !joinMergedCell(table))
        addCell(table);
    table.column += table.cellProperties.columnSpan;
    table.columnCount = std::max(table.columnCount, table.column);
}

/// A cell that goes on from another one is part of it, unless it holds something of its own.
bool WordTables::joinMergedCell(Table& table)
{
    auto& own = table.cellProperties;
    const auto length = m_builder.length() - table.cellStart;
    const bool isEmpty
        = length == 0 || (length == 1 && m_builder.text().characterAtIndex(table.cellStart) == u'\n');
    if (!isEmpty)
        return false;
    if (own.continuesHorizontalMerge && !table.cells.empty() && table.cells.back().row == table.row) {
        ++table.cells.back().properties.columnSpan;
        m_builder.removeFrom(table.cellStart);
        return true;
    }
    const auto above = table.mergeable.find(table.column);
    if (!own.continuesVerticalMerge || above == table.mergeable.end())
        return false;
    auto& cell = table.cells.at(above->second);
    if (cell.row + cell.rowSpan != table.row || cell.properties.columnSpan != own.columnSpan)
        return false;
    ++cell.rowSpan;
    m_builder.removeFrom(table.cellStart);
    return true;
}

void WordTables::addCell(Table& table)
{
    if (m_cellCount >= kMostCells) {
        m_sink.noteCut("table cells beyond a bound were read as paragraphs");
        return;
    }
    ++m_cellCount;
    const bool isMergeable
        = table.cellProperties.beginsVerticalMerge || table.cellProperties.continuesVerticalMerge;
    if (isMergeable)
        table.mergeable[table.column] = table.cells.size();
    const NSRange range{table.cellStart, m_builder.length() - table.cellStart};
    table.cells.push_back({range, table.row, 1, table.column, table.cellProperties});
}

void WordTables::endTable()
{
    if (m_open.empty())
        return;
    setBlocks(m_open.back());
    m_open.pop_back();
}

void WordTables::setBlocks(const Table& table)
{
    if (table.cells.empty())
        return;
    WordCellBlocks blocks(table.properties, table.row + 1, table.columnCount);
    auto& text = m_builder.text();
    for (const auto& cell : table.cells)
        surround(
            text, cell.range,
            blocks.block({cell.row, cell.rowSpan, cell.column, cell.properties.columnSpan}, cell.properties));
}

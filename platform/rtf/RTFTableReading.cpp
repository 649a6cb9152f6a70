#include "platform/rtf/RTFTableReading.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFTableWords.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>

namespace {

NSTextBlock::Value lengthOf(std::int32_t twips)
{
    return {pointsFromTwips(twips), NSTextBlockValueType::Absolute};
}

NSTextBlock::Value widthOf(std::int32_t width, std::int32_t unit)
{
    if (unit == kPartWidth)
        return {width / kWidthUnitsOfPercent, NSTextBlockValueType::Percentage};
    return unit == kTwipsWidth ? lengthOf(width) : NSTextBlock::Value{};
}

void setLooks(NSTextBlock& block, const RTFBlockFormat& format, const RTFColorReading& colors)
{
    block.setVerticalAlignment(format.alignment);
    block.setBackgroundColor(colors.colorAt(format.background));
    block.setContentWidth(widthOf(format.width, format.widthUnit));
    block.setValue(lengthOf(format.height), NSTextBlockDimension::Height);
    block.setValue(lengthOf(format.minimumWidth), NSTextBlockDimension::MinimumWidth);
    for (const auto edge : kRectEdges) {
        const auto index = static_cast<std::size_t>(edge);
        block.setWidth(lengthOf(format.padding.at(index)), NSTextBlockLayer::Padding, edge);
        block.setWidth(lengthOf(format.margin.at(index)), NSTextBlockLayer::Margin, edge);
        const auto& border = format.borders.at(index);
        if (!border.isDrawn)
            continue;
        block.setWidth(lengthOf(border.width), NSTextBlockLayer::Border, edge);
        block.setBorderColor(colors.colorAt(border.color), edge);
    }
}

} // namespace

RTFTableReading::Level& RTFTableReading::levelAt(std::size_t depth)
{
    const auto index = std::clamp<std::size_t>(depth, 1, kMostRTFTableDepth) - 1;
    if (m_levels.size() <= index)
        m_levels.resize(index + 1);
    return m_levels[index];
}

void RTFTableReading::beginRow(std::size_t depth)
{
    auto& level = levelAt(depth);
    level.definition = std::make_shared<RTFRowFormat>();
    level.isDefinitionUsed = false;
}

/// Rows without a definition of their own share the one before, which therefore stays as it was.
RTFRowFormat* RTFTableReading::definitionAt(std::size_t depth) const
{
    if (depth == 0 || depth > m_levels.size() || m_levels[depth - 1].isDefinitionUsed)
        return nullptr;
    return m_levels[depth - 1].definition.get();
}

std::int32_t RTFTableReading::cellAt(std::size_t depth)
{
    const auto wanted = std::min(depth, kMostRTFTableDepth);
    if (wanted == 0) {
        // The definition of a row stands before its first cell.
        if (!m_levels.empty() && m_levels.front().table != kNoCell)
            m_levels.clear();
        return kNoCell;
    }
    std::int32_t parent = kNoCell;
    for (std::size_t index = 0; index < wanted; ++index) {
        auto& level = levelAt(index + 1);
        if (level.cell == kNoCell)
            openCell(level, parent);
        parent = level.cell;
    }
    for (auto index = wanted; index < m_levels.size(); ++index) {
        if (m_levels[index].table == kNoCell)
            continue;
        m_levels.resize(index);
        break;
    }
    return parent;
}

void RTFTableReading::openCell(Level& level, std::int32_t parent)
{
    if (level.table == kNoCell) {
        level.table = static_cast<std::int32_t>(m_tables.size());
        m_tables.emplace_back();
        level.row = 0;
        level.column = 0;
    }
    level.cell = static_cast<std::int32_t>(m_cells.size());
    auto& cell = m_cells.emplace_back();
    cell.table = level.table;
    cell.row = level.row;
    cell.column = level.column;
    cell.parent = parent;
    level.rowCells.push_back(level.cell);
}

bool RTFTableReading::hasCellAt(std::size_t depth) const
{
    return depth > 0 && depth <= m_levels.size() && m_levels[depth - 1].cell != kNoCell;
}

bool RTFTableReading::isSpannedAt(std::size_t depth) const
{
    if (depth == 0 || depth > m_levels.size() || !m_levels[depth - 1].definition)
        return false;
    const auto& level = m_levels[depth - 1];
    const auto& cell = level.definition->cellAt(level.column);
    return cell.isFromLeft || cell.isFromAbove;
}

void RTFTableReading::endCell(std::size_t depth)
{
    auto& level = levelAt(depth);
    const auto index = static_cast<std::size_t>(&level - m_levels.data());
    level.cell = kNoCell;
    ++level.column;
    // Tables within the cell end with it, and a definition that stands before a table to come with them.
    m_levels.resize(index + 1);
}

bool RTFTableReading::endRow(std::size_t depth)
{
    if (depth == 0 || depth > m_levels.size() || m_levels[depth - 1].column == 0)
        return false;
    auto& level = m_levels[depth - 1];
    if (level.table != kNoCell)
        takeSpans(level);
    const bool isLast = level.definition && level.definition->isLast;
    level.isDefinitionUsed = true;
    level.rowCells.clear();
    level.cell = kNoCell;
    level.column = 0;
    ++level.row;
    if (isLast)
        m_levels.resize(depth - 1);
    else
        m_levels.resize(depth);
    return true;
}

/// Gives the row's cells what its definition says, and those above the rows that they reach into.
void RTFTableReading::takeSpans(Level& level)
{
    auto& table = m_tables[static_cast<std::size_t>(level.table)];
    const auto defined = level.definition ? level.definition->cells().size() : 0;
    table.columns = std::max({table.columns, level.column, defined});
    if (!table.definition)
        table.definition = level.definition;
    const auto columns = std::min(level.column, kMostRTFColumns);
    level.owners.resize(std::max(level.owners.size(), columns), kNoCell);
    auto own = level.rowCells.begin();
    for (std::size_t column = 0; column < columns; ++column) {
        while (own != level.rowCells.end() && m_cells[static_cast<std::size_t>(*own)].column < column)
            ++own;
        const bool hasText
            = own != level.rowCells.end() && m_cells[static_cast<std::size_t>(*own)].column == column;
        auto& owner = level.owners[column];
        if (hasText) {
            owner = *own;
            m_cells[static_cast<std::size_t>(*own)].definition = level.definition;
        } else if (owner != kNoCell && level.definition && level.definition->cellAt(column).isFromAbove) {
            ++m_cells[static_cast<std::size_t>(owner)].rowSpan;
        } else {
            owner = kNoCell;
        }
    }
}

void RTFTableReading::makeTable(Table& table, const RTFColorReading& colors) const
{
    table.table = std::make_shared<NSTextTable>();
    table.table->setNumberOfColumns(std::min(table.columns, kMostRTFColumns));
    if (!table.definition)
        return;
    table.table->setCollapsesBorders(table.definition->collapsesBorders);
    setLooks(*table.table, table.definition->table, colors);
}

void RTFTableReading::makeBlock(Cell& cell, const RTFColorReading& colors)
{
    static const RTFCellDefinition kPlain;
    const auto& definition = cell.definition ? cell.definition->cellAt(cell.column) : kPlain;
    const auto block = std::make_shared<NSTextTableBlock>(
        m_tables[static_cast<std::size_t>(cell.table)].table, cell.row, cell.rowSpan,
        static_cast<NSInteger>(cell.column), definition.columnSpan);
    setLooks(*block, definition.block, colors);
    cell.block = block;
}

void RTFTableReading::finish(const RTFColorReading& colors)
{
    for (auto& table : m_tables)
        makeTable(table, colors);
    for (auto& cell : m_cells)
        makeBlock(cell, colors);
}

NSParagraphStyle::TextBlocks RTFTableReading::blocksOf(std::int32_t cell) const
{
    NSParagraphStyle::TextBlocks blocks;
    for (; cell != kNoCell; cell = m_cells[static_cast<std::size_t>(cell)].parent)
        blocks.push_back(m_cells[static_cast<std::size_t>(cell)].block);
    std::reverse(blocks.begin(), blocks.end());
    return blocks;
}

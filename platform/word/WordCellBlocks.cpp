#include "platform/word/WordCellBlocks.h"

#include "platform/word/WordColors.h"

namespace {

/// What cells have to their sides where a document does not say.
constexpr double kUsualPadding = 5.4;

bool isAtSide(NSRectEdge edge)
{
    return edge == NSRectEdge::MinX || edge == NSRectEdge::MaxX;
}

} // namespace

WordCellBlocks::WordCellBlocks(const WordTableProperties& table, int rowCount, int columnCount)
    : m_properties(table)
    , m_rowCount(rowCount)
    , m_columnCount(columnCount)
{
    const auto made = std::make_shared<NSTextTable>();
    made->setNumberOfColumns(static_cast<NSUInteger>(columnCount));
    made->setCollapsesBorders(true);
    if (table.width)
        made->setContentWidth(*table.width);
    m_table = made;
}

std::optional<WordBorder> WordCellBlocks::borderAt(NSRectEdge edge, const WordCellPlace& place,
                                                   const WordTableProperties& cell) const
{
    const auto index = static_cast<std::size_t>(edge);
    if (cell.borders.at(index))
        return cell.borders.at(index);
    bool isOuter = edge == NSRectEdge::MinX ? place.column == 0 : place.row == 0;
    if (edge == NSRectEdge::MaxX)
        isOuter = place.column + place.columnSpan >= m_columnCount;
    else if (edge == NSRectEdge::MaxY)
        isOuter = place.row + place.rowSpan >= m_rowCount;
    const auto inside = isAtSide(edge) ? WordBorderPlace::InsideVertical : WordBorderPlace::InsideHorizontal;
    return m_properties.borders.at(isOuter ? index : static_cast<std::size_t>(inside));
}

NSTextTableBlock::Ref WordCellBlocks::block(const WordCellPlace& place, const WordTableProperties& cell) const
{
    auto block = std::make_shared<NSTextTableBlock>(m_table, place.row, place.rowSpan, place.column,
                                                    place.columnSpan);
    for (const auto edge : kRectEdges) {
        const auto index = static_cast<std::size_t>(edge);
        const auto usual = m_properties.padding.at(index).value_or(isAtSide(edge) ? kUsualPadding : 0);
        block->setWidth({cell.padding.at(index).value_or(usual)}, NSTextBlockLayer::Padding, edge);
        const auto border = borderAt(edge, place, cell);
        if (!border || border->width <= 0)
            continue;
        block->setWidth({border->width}, NSTextBlockLayer::Border, edge);
        if (!border->color.isAutomatic)
            block->setBorderColor(colorOfWordColor(border->color), edge);
    }
    const auto shading = cell.shading ? cell.shading : m_properties.shading;
    if (shading && !shading->isAutomatic)
        block->setBackgroundColor(colorOfWordColor(*shading));
    if (cell.width)
        block->setContentWidth(*cell.width);
    block->setVerticalAlignment(cell.verticalAlignment.value_or(
        m_properties.verticalAlignment.value_or(NSTextBlockVerticalAlignment::Top)));
    return block;
}

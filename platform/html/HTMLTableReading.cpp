#include "platform/html/HTMLTableReading.h"

#include "platform/html/CSSValues.h"
#include "platform/html/HTMLAttributeStyle.h"
#include "platform/html/HTMLBlockBoxes.h"

#include <algorithm>

void openTable(HTMLOpenElement& element, const HTMLTag& tag, std::size_t place)
{
    const auto table = std::make_shared<HTMLOpenTable>();
    table->table = std::make_shared<NSTextTable>();
    if (const auto border = cssNumber(tag.attribute("border"))) {
        table->cellBorder = border->value > 0 ? 1 : 0;
        if (!element.style.box.hasBorder())
            element.style.box.borderWidth.fill(std::max(border->value, 0.0));
    }
    if (const auto padding = cssNumber(tag.attribute("cellpadding")))
        table->cellPadding = std::max(padding->value, 0.0);
    setBox(*table->table, element.style.box);
    table->table->setCollapsesBorders(element.style.box.collapsesBorders);
    element.style.textIndent = 0;
    element.table = table;
    element.enclosingTable = place;
}

void openRow(const HTMLOpenElement& row, HTMLOpenTable& table)
{
    table.grid.beginRow();
    table.rowBackground = row.style.box.background;
}

void openCell(HTMLOpenElement& element, const HTMLTag& tag, const HTMLOpenElement& tableElement)
{
    auto& table = *tableElement.table;
    if (!table.grid.hasRow())
        table.grid.beginRow();
    const auto columns
        = std::clamp<NSInteger>(integerOf(tag.attribute("colspan"), 1), 1, HTMLTableGrid::kMostColumns);
    const auto rows
        = std::clamp<NSInteger>(integerOf(tag.attribute("rowspan"), 1), 1, HTMLTableGrid::kMostRowsSpanned);
    const auto column = table.grid.nextColumn();
    table.grid.place(column, static_cast<NSUInteger>(columns), static_cast<NSUInteger>(rows));
    const auto cell = std::make_shared<NSTextTableBlock>(
        table.table, static_cast<NSInteger>(table.grid.row()), rows, static_cast<NSInteger>(column), columns);
    auto& box = element.style.box;
    if (!box.hasBorder())
        box.borderWidth.fill(table.cellBorder);
    if (table.cellPadding)
        box.padding.fill(*table.cellPadding);
    if (!box.background)
        box.background = table.rowBackground;
    setBox(*cell, box);
    element.context = {};
    element.context.blocks = tableElement.context.blocks;
    element.context.blocks.push_back(cell);
    element.item = HTMLOpenElement::kNone;
}

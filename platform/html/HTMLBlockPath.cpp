#include "platform/html/HTMLBlockPath.h"

#include "platform/html/HTMLBlockStyle.h"
#include "platform/html/HTMLEscaping.h"
#include "platform/html/HTMLListMarkers.h"

#include <fmt/format.h>

#include <algorithm>

namespace {

/// Rows without cells that are written for those that a table's numbers leave out.
constexpr NSInteger kMostEmptyRows = 1000;
constexpr std::size_t kMostDepth = 64;

constexpr std::string_view kListRules
    = "ul,ol{margin:0;padding-left:36px}\nul.checklist,li.none{list-style:none}";
constexpr std::string_view kTableRules = "table{border-spacing:0}\ntd{padding:0;vertical-align:top}";

std::string spanAttribute(std::string_view name, NSInteger span)
{
    return span > 1 ? fmt::format(R"( {}="{}")", name, span) : std::string();
}

/// What tells the list's marker format from the usual one of its element.
std::string listAttributes(const NSTextList& list)
{
    if (isChecklist(list))
        return R"( class="checklist")";
    const auto& format = list.markerFormat();
    const auto type = listStyleTypeForMarkerFormat(format);
    std::string attributes;
    if (type != "disc" && type != "decimal")
        attributes = fmt::format(R"( style="list-style-type:{}")", type);
    // CSS has no keyword for what stands around a numeral, nor for some of the signs.
    if (markerFormatForListStyleType(type) != std::u16string_view(format))
        attributes += fmt::format(R"( data-marker="{}")", htmlAttributeValue(format));
    return attributes;
}

} // namespace

std::vector<HTMLBlockPath::Place> HTMLBlockPath::placesOf(const NSParagraphStyle& style)
{
    std::vector<Place> places;
    for (const auto& block : style.textBlocks()) {
        const auto* const cell = dynamic_cast<const NSTextTableBlock*>(block.get());
        const auto table = cell ? cell->table() : nullptr;
        if (table) {
            places.push_back({.kind = Kind::Table, .identity = table.get(), .block = table});
            places.push_back({.kind = Kind::Row, .identity = table.get(), .row = cell->startingRow()});
        }
        places.push_back({.kind = table ? Kind::Cell : Kind::Block, .identity = block.get(), .block = block});
    }
    for (const auto& list : style.textLists()) {
        places.push_back({.kind = Kind::List, .identity = list.get(), .list = list});
        places.push_back({.kind = Kind::Item, .list = list});
    }
    if (places.size() > kMostDepth)
        places.resize(kMostDepth);
    if (!places.empty())
        places.back().isInnermost = true;
    return places;
}

bool HTMLBlockPath::isSame(const Place& open, const Place& wanted)
{
    if (open.kind != wanted.kind)
        return false;
    // Each paragraph of a list is an item; those around it stay open.
    if (open.kind == Kind::Item)
        return !wanted.isInnermost;
    if (open.kind == Kind::List && isChecklist(*open.list) && isChecklist(*wanted.list))
        return true;
    return open.identity == wanted.identity && open.row == wanted.row;
}

std::string_view HTMLBlockPath::elementName(const Place& place)
{
    switch (place.kind) {
    case Kind::Block:
        return "div";
    case Kind::Table:
        return "table";
    case Kind::Row:
        return "tr";
    case Kind::Cell:
        return "td";
    case Kind::List:
        return isOrderedList(*place.list) ? "ol" : "ul";
    case Kind::Item:
        return "li";
    }
    return {};
}

void HTMLBlockPath::enter(const NSParagraphStyle& style, std::string_view itemAttributes,
                          std::optional<NSInteger> itemNumber)
{
    auto wanted = placesOf(style);
    std::size_t common = 0;
    while (common < wanted.size() && common < m_open.size() && isSame(m_open[common], wanted[common]))
        ++common;
    while (m_open.size() > common)
        close();
    for (auto index = common; index < wanted.size(); ++index)
        open(std::move(wanted[index]), itemAttributes, itemNumber);
}

void HTMLBlockPath::closeAll()
{
    while (!m_open.empty())
        close();
}

void HTMLBlockPath::open(Place place, std::string_view itemAttributes, std::optional<NSInteger> itemNumber)
{
    switch (place.kind) {
    case Kind::Block:
        m_html += fmt::format("<div{}>\n",
                              htmlClassAttribute(m_sheet.classFor(blockDeclarations(*place.block))));
        break;
    case Kind::Table: {
        m_sheet.addRule(kTableRules);
        const auto& table = static_cast<const NSTextTable&>(*place.block);
        m_html += fmt::format("<table{}>\n", htmlClassAttribute(m_sheet.classFor(tableDeclarations(table))));
        break;
    }
    case Kind::Row:
        openRow(place.row);
        break;
    case Kind::Cell:
        openCell(place);
        break;
    case Kind::List:
        openList(place);
        break;
    case Kind::Item:
        openItem(place, itemAttributes, itemNumber);
        break;
    }
    m_open.push_back(std::move(place));
}

void HTMLBlockPath::openRow(NSInteger row)
{
    auto& grid = m_open.back().grid;
    const auto next = grid.hasRow() ? static_cast<NSInteger>(grid.row()) + 1 : 0;
    const auto missing = std::clamp<NSInteger>(row - next, 0, kMostEmptyRows);
    for (NSInteger index = 0; index < missing; ++index) {
        grid.beginRow();
        m_html += "<tr></tr>\n";
    }
    grid.beginRow();
    m_html += "<tr>\n";
}

void HTMLBlockPath::openCell(const Place& place)
{
    const auto& cell = static_cast<const NSTextTableBlock&>(*place.block);
    auto& grid = m_open[m_open.size() - 2].grid;
    const auto column = std::clamp<NSInteger>(cell.startingColumn(), 0, HTMLTableGrid::kMostColumns - 1);
    for (auto next = grid.nextColumn(); next < static_cast<NSUInteger>(column); next = grid.nextColumn()) {
        grid.place(next, 1, 1);
        m_html += "<td></td>\n";
    }
    const auto columnSpan = std::clamp<NSInteger>(cell.columnSpan(), 1, HTMLTableGrid::kMostColumns);
    const auto rowSpan = std::clamp<NSInteger>(cell.rowSpan(), 1, HTMLTableGrid::kMostRowsSpanned);
    grid.place(grid.nextColumn(), static_cast<NSUInteger>(columnSpan), static_cast<NSUInteger>(rowSpan));
    m_html += fmt::format("<td{}{}{}>\n", htmlClassAttribute(m_sheet.classFor(blockDeclarations(cell))),
                          spanAttribute("colspan", columnSpan), spanAttribute("rowspan", rowSpan));
}

void HTMLBlockPath::openList(Place& place)
{
    m_sheet.addRule(kListRules);
    const auto& list = *place.list;
    place.nextNumber = list.startingItemNumber();
    const bool isStarted = isOrderedList(list) && list.startingItemNumber() != 1;
    m_html
        += fmt::format("<{}{}{}>\n", elementName(place), listAttributes(list),
                       isStarted ? fmt::format(R"( start="{}")", list.startingItemNumber()) : std::string());
}

void HTMLBlockPath::openItem(const Place& place, std::string_view attributes, std::optional<NSInteger> number)
{
    // An item that only holds the list of the paragraph has no marker of its own.
    if (!place.isInnermost) {
        m_html += R"(<li class="none">)";
        return;
    }
    auto& list = m_open.back();
    const bool isOutOfOrder = number && isOrderedList(*place.list) && *number != list.nextNumber;
    if (isOutOfOrder)
        list.nextNumber = *number;
    m_html += fmt::format("<li{}{}>", isOutOfOrder ? fmt::format(R"( value="{}")", *number) : std::string(),
                          attributes);
    ++list.nextNumber;
}

void HTMLBlockPath::close()
{
    m_html += fmt::format("</{}>\n", elementName(m_open.back()));
    m_open.pop_back();
}

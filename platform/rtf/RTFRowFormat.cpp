#include "platform/rtf/RTFRowFormat.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFTableWords.h"

#include <array>
#include <utility>

namespace {

using Row = RTFRowFormat;
using Parameter = RTFParameter;

constexpr auto kLeft = static_cast<std::size_t>(NSRectEdge::MinX);
constexpr auto kTop = static_cast<std::size_t>(NSRectEdge::MinY);
constexpr auto kRight = static_cast<std::size_t>(NSRectEdge::MaxX);
constexpr auto kBottom = static_cast<std::size_t>(NSRectEdge::MaxY);

template <std::size_t edge> void beginCellBorder(Row& row, Parameter /*parameter*/)
{
    row.border = &row.next.block.borders.at(edge);
}

template <std::size_t edge> void beginTableBorder(Row& row, Parameter /*parameter*/)
{
    row.border = &row.table.borders.at(edge);
}

template <std::size_t edge> void setPadding(Row& row, Parameter parameter)
{
    row.next.block.padding.at(edge) = parameter.valueOr(0);
}

template <std::size_t edge> void setMargin(Row& row, Parameter parameter)
{
    row.next.block.margin.at(edge) = parameter.valueOr(0);
}

template <NSTextBlockVerticalAlignment alignment> void setAlignment(Row& row, Parameter /*parameter*/)
{
    row.next.block.alignment = alignment;
}

void drawBorder(Row& row, Parameter /*parameter*/)
{
    if (row.border)
        row.border->isDrawn = true;
}

constexpr std::array kWords{
    RTFRowWord{"taflags",
               [](Row& r, Parameter p) { r.collapsesBorders = (p.valueOr(0) & kCollapsedBorders) != 0; }},
    RTFRowWord{"lastrow", [](Row& r, Parameter p) { r.isLast = p.isOn(); }},
    RTFRowWord{"trcbpat", [](Row& r, Parameter p) { r.table.background = p.valueOr(0); }},
    RTFRowWord{"trwWidth", [](Row& r, Parameter p) { r.table.width = p.valueOr(0); }},
    RTFRowWord{"trftsWidth", [](Row& r, Parameter p) { r.table.widthUnit = p.valueOr(0); }},
    RTFRowWord{"trbrdrl", beginTableBorder<kLeft>},
    RTFRowWord{"trbrdrt", beginTableBorder<kTop>},
    RTFRowWord{"trbrdrr", beginTableBorder<kRight>},
    RTFRowWord{"trbrdrb", beginTableBorder<kBottom>},
    RTFRowWord{"trbrdrh", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"trbrdrv", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"clbrdrl", beginCellBorder<kLeft>},
    RTFRowWord{"clbrdrt", beginCellBorder<kTop>},
    RTFRowWord{"clbrdrr", beginCellBorder<kRight>},
    RTFRowWord{"clbrdrb", beginCellBorder<kBottom>},
    RTFRowWord{"cldglu", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"cldgll", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    // Borders of paragraphs, which are not kept.
    RTFRowWord{"brdrl", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrt", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrr", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrb", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"box", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrs", drawBorder},
    RTFRowWord{"brdrth", drawBorder},
    RTFRowWord{"brdrdb", drawBorder},
    RTFRowWord{"brdrdot", drawBorder},
    RTFRowWord{"brdrdash", drawBorder},
    RTFRowWord{"brdrnil", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrnone", [](Row& r, Parameter /*p*/) { r.border = nullptr; }},
    RTFRowWord{"brdrw",
               [](Row& r, Parameter p) {
                   if (r.border)
                       r.border->width = p.valueOr(0);
               }},
    RTFRowWord{"brdrcf",
               [](Row& r, Parameter p) {
                   if (r.border)
                       r.border->color = p.valueOr(0);
               }},
    RTFRowWord{"clpadl", setPadding<kLeft>},
    RTFRowWord{"clpadt", setPadding<kTop>},
    RTFRowWord{"clpadr", setPadding<kRight>},
    RTFRowWord{"clpadb", setPadding<kBottom>},
    RTFRowWord{"clmarl", setMargin<kLeft>},
    RTFRowWord{"clmart", setMargin<kTop>},
    RTFRowWord{"clmarr", setMargin<kRight>},
    RTFRowWord{"clmarb", setMargin<kBottom>},
    RTFRowWord{"clvertalt", setAlignment<NSTextBlockVerticalAlignment::Top>},
    RTFRowWord{"clvertalc", setAlignment<NSTextBlockVerticalAlignment::Middle>},
    RTFRowWord{"clvertalb", setAlignment<NSTextBlockVerticalAlignment::Bottom>},
    RTFRowWord{"clvertalbase", setAlignment<NSTextBlockVerticalAlignment::Baseline>},
    RTFRowWord{"clcbpat", [](Row& r, Parameter p) { r.next.block.background = p.valueOr(0); }},
    RTFRowWord{"clshdrawnil", [](Row& r, Parameter /*p*/) { r.next.block.background = 0; }},
    RTFRowWord{"clwWidth", [](Row& r, Parameter p) { r.next.block.width = p.valueOr(0); }},
    RTFRowWord{"clftsWidth", [](Row& r, Parameter p) { r.next.block.widthUnit = p.valueOr(0); }},
    RTFRowWord{"clheight", [](Row& r, Parameter p) { r.next.block.height = p.valueOr(0); }},
    RTFRowWord{"clminw", [](Row& r, Parameter p) { r.next.block.minimumWidth = p.valueOr(0); }},
    RTFRowWord{"clmrg", [](Row& r, Parameter /*p*/) { r.next.isFromLeft = true; }},
    RTFRowWord{"clvmrg", [](Row& r, Parameter /*p*/) { r.next.isFromAbove = true; }},
    RTFRowWord{"cellx", [](Row& r, Parameter /*p*/) { r.endCell(); }},
};

} // namespace

const RTFCellDefinition& RTFRowFormat::cellAt(std::size_t index) const
{
    static const RTFCellDefinition kPlain;
    return index < m_cells.size() ? m_cells[index] : kPlain;
}

void RTFRowFormat::endCell()
{
    auto cell = std::exchange(next, {});
    border = nullptr;
    if (m_cells.size() >= kMostRTFColumns)
        return;
    if (m_cells.empty())
        cell.isFromLeft = false;
    if (cell.isFromLeft)
        ++m_cells[m_owner].columnSpan;
    else
        m_owner = m_cells.size();
    m_cells.push_back(cell);
}

std::span<const RTFRowWord> rowWords()
{
    return kWords;
}

#include "platform/word/WordTableWriting.h"

#include "platform/word/WordUnits.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view kLowParagraph
    = "<w:p><w:pPr><w:spacing w:line=\"20\" w:lineRule=\"exact\"/><w:rPr><w:sz "
      "w:val=\"2\"/></w:rPr></w:pPr></w:p>";
constexpr double kLeastInnerWidth = 36;

/// The height that a row must have for its cells; 0 for any.
double heightOf(const WordTableGrid::Row& row)
{
    double height = 0;
    for (const auto& place : row.places) {
        if (!place.holdsText())
            continue;
        for (const auto dimension : {NSTextBlockDimension::Height, NSTextBlockDimension::MinimumHeight}) {
            const auto value = place.form.cell->valueForDimension(dimension);
            if (value.type == NSTextBlockValueType::Absolute)
                height = std::max(height, value.value);
        }
    }
    return height;
}

void writeRowProperties(WordXML& xml, const WordTableGrid::Row& row)
{
    const auto height = heightOf(row);
    if (row.columnsBefore == 0 && row.columnsBehind == 0 && height <= 0)
        return;
    xml.raw("<w:trPr>");
    if (row.columnsBefore > 0)
        xml.property("w:gridBefore", static_cast<std::int64_t>(row.columnsBefore));
    if (row.columnsBehind > 0)
        xml.property("w:gridAfter", static_cast<std::int64_t>(row.columnsBehind));
    if (height > 0)
        xml.property("w:trHeight", wordTwips(height));
    xml.raw("</w:trPr>");
}

} // namespace

void WordTableWriting::openCells(const WordTextParagraph& paragraph)
{
    while (m_cells.size() < paragraph.cells.size())
        openCell(paragraph, m_cells.size());
    m_isBehindTable = false;
}

void WordTableWriting::openCell(const WordTextParagraph& paragraph, std::size_t level)
{
    if (level >= m_tables.size())
        beginTable(paragraph, level);
    auto& open = m_tables[level];
    if (!open.isRowOpen)
        beginRow(open);
    writeEmptyPlaces(open);
    m_xml.raw("<w:tc>");
    writeWordCellProperties(m_xml, open.grid.rows()[open.row].places[open.place].form);
    ++open.place;
    m_cells.push_back(paragraph.cells[level]);
    m_isBehindTable = false;
}

double WordTableWriting::widthOfOpenCell(const OpenTable& open)
{
    const auto& place = open.grid.rows()[open.row].places[open.place - 1];
    const auto first = std::min(place.column, open.widths.size());
    const auto last = std::min(place.column + place.form.columnCount, open.widths.size());
    double width = 0;
    for (auto column = first; column < last; ++column)
        width += open.widths[column];
    return std::max(width, kLeastInnerWidth);
}

void WordTableWriting::beginTable(const WordTextParagraph& paragraph, std::size_t level)
{
    separate();
    WordTableGrid grid(m_paragraphs, paragraph, level);
    auto widths = grid.columnWidths(level == 0 ? m_width : widthOfOpenCell(m_tables[level - 1]));
    m_xml.raw("<w:tbl>");
    writeWordTableProperties(m_xml, *paragraph.cells[level]->table(), grid.hasWidths());
    m_xml.raw("<w:tblGrid>");
    for (const auto column : widths) {
        m_xml.raw("<w:gridCol");
        m_xml.attribute("w:w", wordTwips(column));
        m_xml.raw("/>");
    }
    m_xml.raw("</w:tblGrid>");
    m_tables.push_back({std::move(grid), std::move(widths)});
}

void WordTableWriting::beginRow(OpenTable& open)
{
    m_xml.raw("<w:tr>");
    writeRowProperties(m_xml, open.grid.rows()[open.row]);
    open.place = 0;
    open.isRowOpen = true;
}

/// Writes the cells without text of their own, up to one that has some or to the row's end.
void WordTableWriting::writeEmptyPlaces(OpenTable& open)
{
    const auto& places = open.grid.rows()[open.row].places;
    for (; open.place < places.size() && !places[open.place].holdsText(); ++open.place) {
        m_xml.raw("<w:tc>");
        writeWordCellProperties(m_xml, places[open.place].form);
        m_xml.raw("<w:p/></w:tc>");
    }
}

void WordTableWriting::closeCells(const std::optional<WordTextParagraph>& next)
{
    const auto most = next ? std::min(next->cells.size(), m_cells.size()) : 0;
    std::size_t kept = 0;
    while (kept < most && next->cells[kept] == m_cells[kept])
        ++kept;
    while (m_cells.size() > kept)
        endCell();
}

void WordTableWriting::endCell()
{
    separate();
    m_xml.raw("</w:tc>");
    m_cells.pop_back();
    auto& open = m_tables[m_cells.size()];
    const auto& rows = open.grid.rows();
    const auto& places = rows[open.row].places;
    const bool goesOn = std::any_of(places.begin() + static_cast<std::ptrdiff_t>(open.place), places.end(),
                                    [](const WordTableGrid::Place& place) { return place.holdsText(); });
    if (goesOn)
        return;
    writeEmptyPlaces(open);
    m_xml.raw("</w:tr>");
    open.isRowOpen = false;
    if (++open.row < rows.size())
        return;
    m_xml.raw("</w:tbl>");
    m_tables.pop_back();
    m_isBehindTable = true;
}

void WordTableWriting::separate()
{
    if (m_isBehindTable)
        m_xml.raw(kLowParagraph);
    m_isBehindTable = false;
}

void WordTableWriting::finish()
{
    separate();
}

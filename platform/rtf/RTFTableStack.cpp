#include "platform/rtf/RTFTableStack.h"

#include <algorithm>

bool RTFTableStack::openCells(const RTFTextParagraph& paragraph)
{
    if (m_cells.size() >= paragraph.cells.size())
        return false;
    while (m_cells.size() < paragraph.cells.size())
        openCell(paragraph, m_cells.size());
    return true;
}

void RTFTableStack::openCell(const RTFTextParagraph& paragraph, std::size_t level)
{
    const auto& cell = paragraph.cells[level];
    if (level >= m_rows.size())
        m_rows.push_back({RTFTableRows(cell->table()), {}, 0});
    auto& open = m_rows[level];
    if (open.nextSlot >= open.row.slots.size()) {
        open.row = open.rows.rowAt(m_paragraphs, paragraph, level);
        open.nextSlot = 0;
        writeTableRow(m_output, *cell->table(), open.row, level + 1, m_colors);
    }
    writeEmptySlots(open, level);
    ++open.nextSlot;
    m_cells.push_back(cell);
}

/// Writes the cells without text of their own, up to one that has some or to the row's end.
void RTFTableStack::writeEmptySlots(OpenRow& open, std::size_t level)
{
    const auto& slots = open.row.slots;
    for (; open.nextSlot < slots.size() && !slots[open.nextSlot].holdsText(); ++open.nextSlot) {
        m_output.word("pard");
        m_output.word("intbl");
        m_output.word("itap", static_cast<std::int64_t>(level) + 1);
        writeCellEnd(level);
    }
}

void RTFTableStack::writeCellEnd(std::size_t level)
{
    m_output.word(level == 0 ? "cell" : "nestcell");
    m_output.blank();
    m_output.lineBreak();
}

bool RTFTableStack::closeCells(const std::optional<RTFTextParagraph>& next)
{
    const auto most = next ? std::min(next->cells.size(), m_cells.size()) : 0;
    std::size_t kept = 0;
    while (kept < most && next->cells[kept] == m_cells[kept])
        ++kept;
    const auto depth = m_cells.size();
    while (m_cells.size() > kept) {
        const auto level = m_cells.size() - 1;
        // Behind a table that ends a cell no paragraph says which cell it is.
        if (level + 1 < depth)
            m_output.word("itap", static_cast<std::int64_t>(level) + 1);
        writeCellEnd(level);
        m_cells.pop_back();
        finishRow(level);
    }
    return kept < depth;
}

void RTFTableStack::finishRow(std::size_t level)
{
    auto& open = m_rows[level];
    const auto& slots = open.row.slots;
    const bool goesOn = std::any_of(slots.begin() + static_cast<std::ptrdiff_t>(open.nextSlot), slots.end(),
                                    [](const RTFTableSlot& slot) { return slot.holdsText(); });
    if (goesOn)
        return;
    writeEmptySlots(open, level);
    if (open.row.isLast)
        m_output.word("lastrow");
    m_output.word(level == 0 ? "row" : "nestrow");
    m_output.lineBreak();
    if (open.row.isLast)
        m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(level), m_rows.end());
}

#pragma once

#include "platform/rtf/RTFTableWriting.h"

#include <optional>
#include <vector>

/// The tables, rows and cells that are open while a text is written, the outermost first.
class RTFTableStack {
public:
    /// All of them must outlive it.
    RTFTableStack(RTFOutput& output, const RTFTextParagraphs& paragraphs, RTFColorWriting& colors)
        : m_output(output)
        , m_paragraphs(paragraphs)
        , m_colors(colors)
    {
    }

    /// Begins the cells that the paragraph is in beyond those that are open. Whether there were any.
    bool openCells(const RTFTextParagraph& paragraph);
    /// Ends the cells that the next paragraph is not in, and their rows; `next` is none at the end. Whether
    /// there were any: they end the paragraph too.
    bool closeCells(const std::optional<RTFTextParagraph>& next);

private:
    struct OpenRow {
        RTFTableRows rows;
        RTFTableRow row;
        std::size_t nextSlot = 0;
    };

    void openCell(const RTFTextParagraph& paragraph, std::size_t level);
    void writeEmptySlots(OpenRow& open, std::size_t level);
    void writeCellEnd(std::size_t level);
    void finishRow(std::size_t level);

    RTFOutput& m_output;
    const RTFTextParagraphs& m_paragraphs;
    RTFColorWriting& m_colors;
    std::vector<OpenRow> m_rows;
    RTFTextParagraph::Cells m_cells;
};

#pragma once

#include "platform/word/WordTableGrid.h"

#include <optional>
#include <vector>

/// The tables, rows and cells that are open while a text is written, the outermost first. A paragraph stands
/// where the format must have one and the text has none: between two tables, and behind a table that ends a
/// cell or the text. It is as low as can be.
class WordTableWriting {
public:
    /// Both must outlive it; `width`, in points, is the text's.
    WordTableWriting(WordXML& xml, const WordTextParagraphs& paragraphs, double width)
        : m_xml(xml)
        , m_paragraphs(paragraphs)
        , m_width(width)
    {
    }

    /// Begins the cells that the paragraph is in beyond those that are open.
    void openCells(const WordTextParagraph& paragraph);
    /// Ends the cells that the next paragraph is not in, with their rows and tables; `next` is none at the
    /// end. To be called behind each paragraph.
    void closeCells(const std::optional<WordTextParagraph>& next);

    /// Ends the text.
    void finish();

private:
    struct OpenTable {
        WordTableGrid grid;
        /// Of its columns, in points.
        std::vector<double> widths;
        std::size_t row = 0;
        std::size_t place = 0;
        bool isRowOpen = false;
    };

    void openCell(const WordTextParagraph& paragraph, std::size_t level);
    [[nodiscard]] static double widthOfOpenCell(const OpenTable& open);
    void beginTable(const WordTextParagraph& paragraph, std::size_t level);
    void beginRow(OpenTable& open);
    void writeEmptyPlaces(OpenTable& open);
    void endCell();
    void separate();

    WordXML& m_xml;
    const WordTextParagraphs& m_paragraphs;
    double m_width;
    std::vector<OpenTable> m_tables;
    std::vector<NSTextTableBlock::Ref> m_cells;
    bool m_isBehindTable = false;
};

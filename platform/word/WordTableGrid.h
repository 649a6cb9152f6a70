#pragma once

#include "platform/word/WordBlockWriting.h"
#include "platform/word/WordTextParagraphs.h"

#include <vector>

/// The rows and columns of one table of a text, as the format has them: each row from its first column on,
/// with what reaches into it from above.
class WordTableGrid {
public:
    struct Place {
        WordCellForm form;
        std::size_t column = 0;

        /// Whether the cell's text stands here.
        [[nodiscard]] bool holdsText() const { return form.cell && !form.isFromAbove; }
    };

    struct Row {
        /// The columns before the first place, and behind the last one.
        std::size_t columnsBefore = 0;
        std::size_t columnsBehind = 0;
        std::vector<Place> places;
    };

    /// The table of `first`'s cell at `level`, of which `first` is the first paragraph. Looks at all its
    /// paragraphs. Each time that text comes to another cell it is a place of its own, a row goes on while
    /// cells say the same row, and cells that would lie on others are moved behind them.
    WordTableGrid(const WordTextParagraphs& paragraphs, const WordTextParagraph& first, std::size_t level);

    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }

    /// The widths of the columns, in points: those that cells of one column say, shares of what is left of
    /// `width` for the others.
    [[nodiscard]] std::vector<double> columnWidths(double width) const;

    /// Whether any cell says its width.
    [[nodiscard]] bool hasWidths() const { return m_hasWidths; }

private:
    struct Span {
        const NSTextTableBlock* cell = nullptr;
        std::size_t columnCount = 1;
        NSInteger rowsLeft = 0;
    };

    void addCell(const NSTextTableBlock& cell);
    void fillUpTo(std::size_t column);
    void beginRow();
    void endRow();

    std::vector<Row> m_rows;
    std::size_t m_columnCount = 0;
    bool m_hasWidths = false;
    /// Of the row that is being made: the next column.
    std::size_t m_column = 0;
    /// By the first column of a cell, what reaches down from the rows before.
    std::vector<Span> m_spans;
};

#pragma once

#include "platform/rtf/RTFColorWriting.h"
#include "platform/rtf/RTFTextParagraphs.h"

#include <vector>

/// The cells that RTF wants in a row of a table: those that have text, and those that others span.
struct RTFTableSlot {
    /// The cell that stands here or reaches to here; null for a place without one.
    NSTextTableBlock::Ref cell;
    /// The cell reaches here from the left, or from the row above.
    bool isFromLeft = false;
    bool isFromAbove = false;

    /// Whether the cell's text stands here.
    [[nodiscard]] bool holdsText() const { return cell && !isFromLeft && !isFromAbove; }
};

struct RTFTableRow {
    std::vector<RTFTableSlot> slots;
    NSInteger number = 0;
    bool isFirst = false;
    bool isLast = false;
};

/// Makes the rows of one table, from the first to the last.
class RTFTableRows {
public:
    explicit RTFTableRows(NSTextTable::Ref table)
        : m_table(std::move(table))
    {
    }

    [[nodiscard]] const NSTextTable::Ref& table() const { return m_table; }

    /// The row that begins with `paragraph`, whose cell at `level` is of this table. Looks at the paragraphs
    /// of the row and at the one behind them.
    [[nodiscard]] RTFTableRow rowAt(const RTFTextParagraphs& paragraphs, RTFTextParagraph paragraph,
                                    std::size_t level);

private:
    struct Span {
        NSTextTableBlock::Ref cell;
        NSInteger rowsLeft = 0;
        bool isFromLeft = false;
    };

    void addSlotsBefore(std::size_t column, RTFTableRow& row);
    void addCell(const NSTextTableBlock::Ref& cell, RTFTableRow& row);
    void addSpannedSlots(RTFTableRow& row);

    NSTextTable::Ref m_table;
    /// Cells of rows before that reach further down, by column.
    std::vector<Span> m_spans;
    bool m_hasRows = false;
};

/// Writes the definition of a row at a depth, from 1.
void writeTableRow(RTFOutput& output, const NSTextTable& table, const RTFTableRow& row, std::size_t depth,
                   RTFColorWriting& colors);

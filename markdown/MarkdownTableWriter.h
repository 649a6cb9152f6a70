#pragma once

#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <memory>
#include <string>
#include <vector>

/// Makes a table of Markdown from its cells, which come row by row. Cells stand in their own columns; those
/// that others reach over are empty. The first row is the head and as wide as the widest. Columns beyond a
/// bound are not told apart.
class MarkdownTableWriter {
public:
    [[nodiscard]] bool isEmpty() const { return m_rows.empty(); }

    [[nodiscard]] bool isOfTable(const NSTextTableBlock& cell) const { return m_table == cell.table(); }

    /// Adds a paragraph of a cell, as Markdown, with its alignment. Those of the second row, or else of the
    /// head, are those of the columns, as heads are often centred by themselves.
    void add(const NSTextTableBlock& cell, std::u16string_view words, NSTextAlignment alignment);

    /// Whether the cell is of the table's head.
    [[nodiscard]] bool isHead(const NSTextTableBlock& cell) const
    {
        return m_rows.empty() || (m_rows.size() == 1 && m_row == cell.startingRow());
    }

    /// The table's lines, with "\n" between them; the writer is then as it was at first.
    [[nodiscard]] std::u16string finish();

private:
    void addCell(const NSTextTableBlock& cell, NSTextAlignment alignment);

    NSTextTable::Ref m_table;
    const NSTextTableBlock* m_cell = nullptr;
    NSInteger m_row = 0;
    std::vector<std::vector<std::u16string>> m_rows;
    std::vector<NSTextAlignment> m_alignments;
    /// How many columns the widest row reaches over.
    std::size_t m_width = 0;
};

#pragma once

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

    /// Adds a paragraph of a cell, as Markdown.
    void add(const NSTextTableBlock& cell, std::u16string_view words);

    /// The table's lines, with "\n" between them; the writer is then as it was at first.
    [[nodiscard]] std::u16string finish();

private:
    void addCell(const NSTextTableBlock& cell);

    NSTextTable::Ref m_table;
    const NSTextTableBlock* m_cell = nullptr;
    NSInteger m_row = 0;
    std::vector<std::vector<std::u16string>> m_rows;
    /// How many columns the widest row reaches over.
    std::size_t m_width = 0;
};

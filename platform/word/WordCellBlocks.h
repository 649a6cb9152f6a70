#pragma once

#include "platform/text/NSTextTable.h"
#include "platform/word/WordTableProperties.h"

struct WordCellPlace {
    int row = 0;
    int rowSpan = 1;
    int column = 0;
    int columnSpan = 1;
};

/// The blocks of one table's cells: their borders, padding, ground and widths from the table's properties and
/// the cell's own.
class WordCellBlocks {
public:
    WordCellBlocks(const WordTableProperties& table, int rowCount, int columnCount);

    [[nodiscard]] NSTextTableBlock::Ref block(const WordCellPlace& place,
                                              const WordTableProperties& cell) const;

private:
    [[nodiscard]] std::optional<WordBorder> borderAt(NSRectEdge edge, const WordCellPlace& place,
                                                     const WordTableProperties& cell) const;

    WordTableProperties m_properties;
    int m_rowCount;
    int m_columnCount;
    NSTextTable::Ref m_table;
};

#pragma once

#include "platform/text/NSTextTable.h"
#include "platform/word/WordXML.h"

/// Boxes of texts as the format has them.

/// Writes a block that is no cell as borders and ground of a paragraph in it; its margins, widths and heights
/// are left out.
void writeWordParagraphBlock(WordXML& xml, const NSTextBlock& block);

/// Writes the properties of a table. Without a width of its own it has that of its columns.
void writeWordTableProperties(WordXML& xml, const NSTextTable& table, bool hasWidths);

/// A place of a table's row.
struct WordCellForm {
    /// Null for a place without a cell.
    const NSTextTableBlock* cell = nullptr;
    std::size_t columnCount = 1;
    /// Whether the cell reaches into further rows, and whether it comes from one above.
    bool reachesDown = false;
    bool isFromAbove = false;
};

/// Writes the properties of a cell: width, spans, borders, ground, padding and vertical alignment. Margins,
/// and heights beyond those of rows, have no form.
void writeWordCellProperties(WordXML& xml, const WordCellForm& form);

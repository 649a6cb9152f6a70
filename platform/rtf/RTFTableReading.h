#pragma once

#include "platform/rtf/RTFColorReading.h"
#include "platform/rtf/RTFRowFormat.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// The tables of a document that is being read. Paragraphs get cells by number; the cells become blocks when
/// everything is read, since what spans rows is known then only.
class RTFTableReading {
public:
    static constexpr std::int32_t kNoCell = -1;

    /// \trowd: begins a definition at a depth of tables in tables, from 1.
    void beginRow(std::size_t depth);
    /// The definition at the depth, for its words; null when none was begun since the last row.
    [[nodiscard]] RTFRowFormat* definitionAt(std::size_t depth) const;

    /// The cell that text at the depth is in, begun when there is none; deeper tables end. At depth 0 all
    /// end.
    std::int32_t cellAt(std::size_t depth);
    /// Whether the cell that is to end at the depth is only reached into by another one.
    [[nodiscard]] bool isSpannedAt(std::size_t depth) const;
    /// Whether something was put into the cell that is to end at the depth.
    [[nodiscard]] bool hasCellAt(std::size_t depth) const;
    /// \cell and \nestcell.
    void endCell(std::size_t depth);
    /// \row and \nestrow. Whether there was one.
    bool endRow(std::size_t depth);

    /// Makes the blocks of all cells.
    void finish(const RTFColorReading& colors);
    /// After `finish`: the blocks of a cell, the outermost first.
    [[nodiscard]] NSParagraphStyle::TextBlocks blocksOf(std::int32_t cell) const;

private:
    using Definition = std::shared_ptr<RTFRowFormat>;

    struct Cell {
        std::int32_t table = 0;
        std::int32_t row = 0;
        std::size_t column = 0;
        /// Around the table.
        std::int32_t parent = kNoCell;
        std::int32_t rowSpan = 1;
        /// Its row's, once the row has ended.
        Definition definition;
        NSTextBlock::Ref block;
    };

    struct Table {
        std::size_t columns = 0;
        Definition definition;
        std::shared_ptr<NSTextTable> table;
    };

    struct Level {
        std::int32_t table = kNoCell;
        std::int32_t row = 0;
        std::size_t column = 0;
        std::int32_t cell = kNoCell;
        /// The row's cells that have text.
        std::vector<std::int32_t> rowCells;
        /// The cells that reach down to the row before, by column.
        std::vector<std::int32_t> owners;
        Definition definition;
        bool isDefinitionUsed = false;
    };

    Level& levelAt(std::size_t depth);
    void openCell(Level& level, std::int32_t parent);
    void takeSpans(Level& level);
    void makeTable(Table& table, const RTFColorReading& colors) const;
    void makeBlock(Cell& cell, const RTFColorReading& colors);

    std::vector<Level> m_levels;
    std::vector<Table> m_tables;
    std::vector<Cell> m_cells;
};

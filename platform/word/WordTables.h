#pragma once

#include "platform/text/NSTextTable.h"
#include "platform/word/WordStyles.h"
#include "platform/word/WordTableProperties.h"
#include "platform/word/WordTextBuilder.h"

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

/// The tables that are open where a text has come to, the outermost first. A table's cells are known when it
/// ends, merged ones with all they take; only then their paragraphs get their blocks.
class WordTables {
public:
    /// Both must outlive the tables.
    WordTables(WordTextBuilder& builder, const WordStyles& styles, ContentSink& sink)
        : m_builder(builder)
        , m_styles(styles)
        , m_sink(sink)
    {
    }

    void beginTable();
    void setTableProperties(const WordTableProperties& properties);
    void endTable();
    void beginRow();
    void setRowProperties(const WordTableProperties& properties);
    void beginCell();
    void setCellProperties(const WordTableProperties& properties);
    /// The cell's last paragraph has ended.
    void endCell();

    [[nodiscard]] bool isOpen() const { return !m_open.empty(); }

    [[nodiscard]] bool isInCell() const { return !m_open.empty() && m_open.back().isInCell; }

    /// Whether the open cell has no paragraph yet.
    [[nodiscard]] bool isCellEmpty() const
    {
        return isInCell() && m_open.back().cellStart == m_builder.length();
    }

    /// Of the innermost table; null outside of tables and for none.
    [[nodiscard]] const WordStyle* style() const { return m_open.empty() ? nullptr : m_open.back().style; }

private:
    struct Cell {
        NSRange range;
        int row = 0;
        int rowSpan = 1;
        int column = 0;
        WordTableProperties properties;
    };

    struct Table {
        const WordStyle* style = nullptr;
        WordTableProperties properties;
        std::vector<Cell> cells;
        /// By column, the cell that those below may be merged into.
        std::map<int, std::size_t> mergeable;
        int row = -1;
        int column = 0;
        int columnCount = 0;
        bool isInCell = false;
        /// Kept as plain paragraphs.
        bool isFlat = false;
        /// Of the cell that is open.
        NSUInteger cellStart = 0;
        WordTableProperties cellProperties;
    };

    [[nodiscard]] bool joinMergedCell(Table& table);
    void addCell(Table& table);
    void setBlocks(const Table& table);

    WordTextBuilder& m_builder;
    const WordStyles& m_styles;
    ContentSink& m_sink;
    std::vector<Table> m_open;
    std::size_t m_cellCount = 0;
};

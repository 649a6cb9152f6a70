#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/NSTextBlock.h"

#include <memory>

enum class NSTextTableLayoutAlgorithm { Automatic = 0, Fixed = 1 };

/// A table as a whole. Its cells are the blocks of paragraphs; all cells that share one table object are of
/// one table.
class NSTextTable final : public NSTextBlock {
public:
    using Ref = std::shared_ptr<const NSTextTable>;

    void setNumberOfColumns(NSUInteger count) { m_numberOfColumns = count; }

    [[nodiscard]] NSUInteger numberOfColumns() const { return m_numberOfColumns; }

    void setLayoutAlgorithm(NSTextTableLayoutAlgorithm algorithm) { m_layoutAlgorithm = algorithm; }

    [[nodiscard]] NSTextTableLayoutAlgorithm layoutAlgorithm() const { return m_layoutAlgorithm; }

    /// Whether neighbouring cells share one border.
    void setCollapsesBorders(bool collapses) { m_collapsesBorders = collapses; }

    [[nodiscard]] bool collapsesBorders() const { return m_collapsesBorders; }

    /// Whether cells without text have neither ground nor border.
    void setHidesEmptyCells(bool hides) { m_hidesEmptyCells = hides; }

    [[nodiscard]] bool hidesEmptyCells() const { return m_hidesEmptyCells; }

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    static NSAny initWithCoder(NSCoder& coder);

    NSUInteger m_numberOfColumns = 0;
    NSTextTableLayoutAlgorithm m_layoutAlgorithm = NSTextTableLayoutAlgorithm::Automatic;
    bool m_collapsesBorders = false;
    bool m_hidesEmptyCells = false;
};

/// One cell of a table: the block of the paragraphs in it.
class NSTextTableBlock final : public NSTextBlock {
public:
    using Ref = std::shared_ptr<const NSTextTableBlock>;

    /// Rows and columns count from 0. `table` is null only for a cell whose table was lost in an archive.
    NSTextTableBlock(NSTextTable::Ref table, NSInteger startingRow, NSInteger rowSpan,
                     NSInteger startingColumn, NSInteger columnSpan);

    [[nodiscard]] const NSTextTable::Ref& table() const { return m_table; }

    [[nodiscard]] NSInteger startingRow() const { return m_startingRow; }

    [[nodiscard]] NSInteger rowSpan() const { return m_rowSpan; }

    [[nodiscard]] NSInteger startingColumn() const { return m_startingColumn; }

    [[nodiscard]] NSInteger columnSpan() const { return m_columnSpan; }

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    static NSAny initWithCoder(NSCoder& coder);

    NSTextTable::Ref m_table;
    NSInteger m_startingRow;
    NSInteger m_rowSpan;
    NSInteger m_startingColumn;
    NSInteger m_columnSpan;
};

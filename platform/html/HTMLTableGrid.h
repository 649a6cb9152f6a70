#pragma once

#include "platform/foundation/NSRange.h"

#include <vector>

/// Which columns of a table's rows are taken, by cells before and by cells that reach down from rows above.
/// Cells come row by row, in each from the left. Columns beyond a bound are taken for the last one.
class HTMLTableGrid {
public:
    static constexpr NSUInteger kMostColumns = 512;
    static constexpr NSUInteger kMostRowsSpanned = 10'000;

    void beginRow()
    {
        ++m_row;
        m_column = 0;
    }

    /// The number of the row, from 0. There must be one.
    [[nodiscard]] NSUInteger row() const { return m_row - 1; }

    [[nodiscard]] bool hasRow() const { return m_row > 0; }

    /// The first free column behind the last cell.
    [[nodiscard]] NSUInteger nextColumn();
    /// Takes columns of this row and of those below it, as far as there are any.
    void place(NSUInteger column, NSUInteger columnSpan, NSUInteger rowSpan);

    [[nodiscard]] NSUInteger columnCount() const { return m_freeFrom.size(); }

private:
    /// For each column the first row in which it is free.
    std::vector<NSUInteger> m_freeFrom;
    /// One more than the number of the row.
    NSUInteger m_row = 0;
    NSUInteger m_column = 0;
};

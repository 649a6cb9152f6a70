#pragma once

#include <cstddef>
#include <optional>
#include <vector>

/// What a column of a table would like to be.
struct TableColumn {
    /// As its cells say.
    std::optional<double> width;
    /// As wide as its content is by itself, for a column that says nothing; 0 for no wish.
    double natural = 0;
};

/// The widths of the columns of a table that is so wide. Columns that say how wide they are have that, all in
/// proportion where that is too much; the others share the rest: none has less than its natural width while
/// another has more than an equal part.
[[nodiscard]] std::vector<double> columnWidths(const std::vector<TableColumn>& columns, double tableWidth);

#pragma once

#include "platform/text/NSParagraphStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The rows of tables: cells between bars, of which those at both ends may be left out.

/// The cells of a row, without the blanks around them. A backslash before a bar keeps it in its cell, even
/// within code, and is left out. Linear in the row.
[[nodiscard]] std::vector<std::u16string> markdownCells(std::u16string_view row);

/// How the columns are aligned by the row under a table's head: hyphens with colons at the sides. None when
/// the row is something else, has no bar, or more than 128 cells.
[[nodiscard]] std::optional<std::vector<NSTextAlignment>> markdownAlignments(std::u16string_view row);

/// A cell of the row under the head that gives this alignment.
[[nodiscard]] std::u16string_view markdownDelimiterCell(NSTextAlignment alignment);

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// One stretch of a Word file's text, where it stands in the file.
struct WordPiece {
    std::uint64_t offset = 0;
    std::uint64_t byteCount = 0;
    /// UTF-16 code units instead of bytes.
    bool isWide = false;
};

/// The pieces of the text, in the text's order, from the table's bytes. `WideText::Never` for files from
/// before Unicode. Pieces that the table's own bounds contradict are left out; where the pieces point is the
/// caller's to check.
enum class WideText { Never, ByPiece };
[[nodiscard]] std::vector<WordPiece> wordPieces(std::string_view table, WideText wideText);

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

/// Whether a piece may be in UTF-16: never in files from before Unicode.
enum class WideText { Never, ByPiece };

/// The pieces of the text, in the text's order, from the table's bytes. Pieces of no length are left out, and
/// a table that makes no sense gives none; where the pieces point is the caller's to check.
[[nodiscard]] std::vector<WordPiece> wordPieces(std::string_view table, WideText wideText);

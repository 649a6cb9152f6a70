#pragma once

#include <cstddef>
#include <string_view>

/// Which way text runs. The format has it said; texts leave it to their characters.

/// A beginning of a text whose letters run one way; what has no direction goes with what is before it.
struct WordDirectionPiece {
    std::size_t length = 0;
    bool isRightToLeft = false;
};

/// The longest such beginning, not empty unless the text is.
[[nodiscard]] WordDirectionPiece wordDirectionPiece(std::u16string_view text);

/// Whether the first letter that has a direction runs from right to left.
[[nodiscard]] bool beginsRightToLeft(std::u16string_view text);

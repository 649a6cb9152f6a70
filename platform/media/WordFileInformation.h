#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// What the first block of a binary Word file tells of the rest.
struct WordFileInformation {
    enum class Generation { Word2, Word6, Word97 };

    /// Enough bytes of the file for everything here.
    static constexpr std::size_t kByteCount = 0x1AA;

    Generation generation = Generation::Word97;
    bool isEncrypted = false;
    /// Whether the text stands in pieces; else it is all between `textStart` and `textEnd`.
    bool hasPieces = false;
    /// The name of the stream that holds the table of pieces.
    std::string_view tableStream;
    std::uint32_t pieceTableOffset = 0;
    std::uint32_t pieceTableByteCount = 0;
    std::uint32_t textStart = 0;
    std::uint32_t textEnd = 0;
    /// The charset of text with one byte for a character, as TextDecoder takes it.
    std::string_view charsetName;

    /// None when `bytes` do not begin a Word file.
    [[nodiscard]] static std::optional<WordFileInformation> parse(std::string_view bytes);
};

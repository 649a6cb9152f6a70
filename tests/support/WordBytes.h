#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A piece of a legacy Word document's text, in one byte or two for each character.
struct WordPieceBytes {
    std::string bytes;
    std::size_t characterCount;
    bool isWide;
};

[[nodiscard]] WordPieceBytes narrowPiece(const std::string& bytes);
[[nodiscard]] WordPieceBytes widePiece(const std::u16string& text);

/// The two streams of which a legacy Word document consists.
struct WordStreams {
    std::string document;
    std::string table;

    [[nodiscard]] std::string file() const;
};

/// A document as Word 97 and its successors write it, with the text in these pieces.
[[nodiscard]] WordStreams word97Streams(const std::vector<WordPieceBytes>& pieces);

/// The stream of a document as Word 6 writes it: the text stands in one piece, in the code page of a
/// language.
[[nodiscard]] std::string word6Stream(std::string_view text, std::uint64_t language);

#include "tests/support/WordBytes.h"

#include "tests/support/CompoundFileBytes.h"

namespace {

constexpr std::size_t kTextOffset = 1024;
constexpr std::uint64_t kCompressed = 0x4000'0000;

} // namespace

WordPieceBytes narrowPiece(const std::string& bytes)
{
    return {bytes, bytes.size(), false};
}

WordPieceBytes widePiece(const std::u16string& text)
{
    std::string bytes;
    for (const auto unit : text)
        bytes += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    return {bytes, text.size(), true};
}

std::string WordStreams::file() const
{
    return compoundFileOf({{"WordDocument", document}, {"1Table", table}});
}

WordStreams word97Streams(const std::vector<WordPieceBytes>& pieces)
{
    WordStreams streams;
    std::string positions;
    std::string descriptors;
    putLittleEndian(positions, 0, 0, 4);
    std::size_t characters = 0;
    streams.document.resize(kTextOffset);
    for (const auto& piece : pieces) {
        const auto offset = streams.document.size();
        streams.document += piece.bytes;
        characters += piece.characterCount;
        putLittleEndian(positions, positions.size(), characters, 4);
        const auto descriptor = descriptors.size();
        putLittleEndian(descriptors, descriptor + 2, piece.isWide ? offset : (offset * 2 | kCompressed), 4);
        descriptors.resize(descriptor + 8);
    }
    // A list of properties stands before the pieces, as fast saving leaves it.
    streams.table = std::string("\x01\x04\x00grpl\x02", 8);
    putLittleEndian(streams.table, 8, positions.size() + descriptors.size(), 4);
    streams.table += positions + descriptors;
    putLittleEndian(streams.document, 0, 0xA5EC, 2);
    putLittleEndian(streams.document, 2, 0xC1, 2);
    putLittleEndian(streams.document, 0x0A, 0x0200, 2);
    putLittleEndian(streams.document, 0x1A2, 0, 4);
    putLittleEndian(streams.document, 0x1A6, streams.table.size(), 4);
    return streams;
}

std::string word6Stream(std::string_view text, std::uint64_t language)
{
    std::string document(kTextOffset, '\0');
    document += text;
    putLittleEndian(document, 0, 0xA5DC, 2);
    putLittleEndian(document, 2, 104, 2);
    putLittleEndian(document, 6, language, 2);
    putLittleEndian(document, 0x18, kTextOffset, 4);
    putLittleEndian(document, 0x1C, kTextOffset + text.size(), 4);
    return document;
}

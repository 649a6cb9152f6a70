#include "platform/media/WordPieceTable.h"

#include "platform/media/LittleEndian.h"

#include <algorithm>

namespace {

constexpr unsigned char kPropertiesMark = 1;
constexpr unsigned char kPiecesMark = 2;
constexpr std::uint32_t kIsCompressed = 0x4000'0000;
constexpr std::uint32_t kOffsetBits = 0x3FFF'FFFF;
constexpr std::size_t kDescriptorByteCount = 8;
constexpr std::size_t kPositionByteCount = 4;

/// The bytes of the list of pieces, which follows any number of property lists; empty when there is none.
std::string_view pieceList(std::string_view table)
{
    while (!table.empty() && table.front() == kPropertiesMark) {
        const std::size_t skipped = std::size_t{3} + littleEndian16(table, 1);
        table.remove_prefix(std::min(skipped, table.size()));
    }
    constexpr std::size_t kHeadByteCount = 5;
    if (table.size() < kHeadByteCount || table.front() != kPiecesMark)
        return {};
    return table.substr(kHeadByteCount, littleEndian32(table, 1));
}

WordPiece pieceAt(std::uint32_t position, std::uint64_t characterCount, WideText wideText)
{
    if (wideText == WideText::Never)
        return {position, characterCount, false};
    if ((position & kIsCompressed) != 0)
        return {(position & kOffsetBits) / 2, characterCount, false};
    return {position & kOffsetBits, characterCount * 2, true};
}

} // namespace

std::vector<WordPiece> wordPieces(std::string_view table, WideText wideText)
{
    const auto list = pieceList(table);
    if (list.size() < kPositionByteCount)
        return {};
    const auto count = (list.size() - kPositionByteCount) / (kPositionByteCount + kDescriptorByteCount);
    const auto descriptors = (count + 1) * kPositionByteCount;
    std::vector<WordPiece> pieces;
    for (std::size_t index = 0; index < count; ++index) {
        const auto start = littleEndian32(list, index * kPositionByteCount);
        const auto end = littleEndian32(list, (index + 1) * kPositionByteCount);
        constexpr std::size_t kFilePositionOffset = 2;
        const auto position
            = littleEndian32(list, descriptors + index * kDescriptorByteCount + kFilePositionOffset);
        if (end > start)
            pieces.push_back(pieceAt(position, end - start, wideText));
    }
    return pieces;
}

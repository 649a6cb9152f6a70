#include "platform/images/BitmapHeader.h"

#include "platform/media/LittleEndian.h"

#include <cstddef>

namespace {

constexpr std::size_t kHeaderLengthOffset = 14;
constexpr std::size_t kBitsOffset = 28;
constexpr std::size_t kColourCountOffset = 46;
constexpr std::size_t kEndOffset = 50;

/// The oldest headers are shorter and count no colours.
constexpr std::size_t kShortestCountingHeader = 40;

/// Pixels of more bits are colours themselves.
constexpr unsigned kMostBitsOfChoice = 8;

} // namespace

bool claimsTooManyColours(std::string_view bitmapFile)
{
    if (bitmapFile.size() < kEndOffset
        || littleEndian32(bitmapFile, kHeaderLengthOffset) < kShortestCountingHeader)
        return false;
    const unsigned bits = littleEndian16(bitmapFile, kBitsOffset);
    return bits <= kMostBitsOfChoice && littleEndian32(bitmapFile, kColourCountOffset) > 1U << bits;
}

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

/// The fifth version's.
constexpr std::size_t kLongestHeader = 124;

/// Pixels of more bits are colours themselves.
constexpr unsigned kMostBitsOfChoice = 8;

} // namespace

bool overstatesBitmapHeader(std::string_view bitmapFile)
{
    const auto headerLength = littleEndian32(bitmapFile, kHeaderLengthOffset);
    if (headerLength > kLongestHeader)
        return true;
    if (bitmapFile.size() < kEndOffset || headerLength < kShortestCountingHeader)
        return false;
    const unsigned bits = littleEndian16(bitmapFile, kBitsOffset);
    return bits <= kMostBitsOfChoice && littleEndian32(bitmapFile, kColourCountOffset) > 1U << bits;
}

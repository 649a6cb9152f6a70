#include "platform/media/ImageHeader.h"

#include <algorithm>
#include <array>

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kSVGProbeByteCount = 4096;

enum class Order { LittleEndian, BigEndian };

/// A number of so many bytes; 0 where there are none.
std::uint32_t numberAt(std::string_view bytes, std::size_t offset, std::size_t count, Order order)
{
    if (offset > bytes.size() || bytes.size() - offset < count)
        return 0;
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < count; ++index) {
        const auto place = order == Order::BigEndian ? index : count - 1 - index;
        number = number << 8U | static_cast<unsigned char>(bytes[offset + place]);
    }
    return number;
}

NSSize sizeOf(std::uint32_t width, std::uint32_t height)
{
    return {static_cast<double>(width), static_cast<double>(height)};
}

NSSize sizeOfPNG(std::string_view bytes)
{
    return sizeOf(numberAt(bytes, 16, 4, Order::BigEndian), numberAt(bytes, 20, 4, Order::BigEndian));
}

NSSize sizeOfGIF(std::string_view bytes)
{
    return sizeOf(numberAt(bytes, 6, 2, Order::LittleEndian), numberAt(bytes, 8, 2, Order::LittleEndian));
}

NSSize sizeOfBMP(std::string_view bytes)
{
    constexpr std::uint32_t kOldHeaderSize = 12;
    if (numberAt(bytes, 14, 4, Order::LittleEndian) == kOldHeaderSize)
        return sizeOf(numberAt(bytes, 18, 2, Order::LittleEndian),
                      numberAt(bytes, 20, 2, Order::LittleEndian));
    // A negative height is that of a picture whose rows run downwards.
    const auto height = static_cast<std::int32_t>(numberAt(bytes, 22, 4, Order::LittleEndian));
    const auto rows
        = height < 0 ? 0U - static_cast<std::uint32_t>(height) : static_cast<std::uint32_t>(height);
    return sizeOf(numberAt(bytes, 18, 4, Order::LittleEndian), rows);
}

/// Whether the segment begins a frame, whose header has the size.
bool isFrame(std::uint32_t marker)
{
    constexpr std::uint32_t kHuffmanTable = 0xC4;
    constexpr std::uint32_t kReserved = 0xC8;
    constexpr std::uint32_t kArithmeticTable = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != kHuffmanTable && marker != kReserved
        && marker != kArithmeticTable;
}

NSSize sizeOfJPEG(std::string_view bytes)
{
    for (std::size_t offset = 2; offset + 4 <= bytes.size();) {
        if (numberAt(bytes, offset, 1, Order::BigEndian) != 0xFF)
            return {};
        const auto marker = numberAt(bytes, offset + 1, 1, Order::BigEndian);
        if (marker == 0xFF) {
            ++offset;
            continue;
        }
        if (isFrame(marker))
            return sizeOf(numberAt(bytes, offset + 7, 2, Order::BigEndian),
                          numberAt(bytes, offset + 5, 2, Order::BigEndian));
        offset += 2 + std::max<std::size_t>(numberAt(bytes, offset + 2, 2, Order::BigEndian), 2);
    }
    return {};
}

NSSize sizeOfTIFF(std::string_view bytes)
{
    constexpr std::uint32_t kWidthTag = 256;
    constexpr std::uint32_t kHeightTag = 257;
    constexpr std::uint32_t kShort = 3;
    const auto order = bytes.starts_with('I') ? Order::LittleEndian : Order::BigEndian;
    const std::size_t directory = numberAt(bytes, 4, 4, order);
    const auto count = numberAt(bytes, directory, 2, order);
    NSSize size;
    for (std::size_t index = 0; index < count; ++index) {
        const auto entry = directory + 2 + index * 12;
        const auto isShort = numberAt(bytes, entry + 2, 2, order) == kShort;
        const double value = numberAt(bytes, entry + 8, isShort ? 2 : 4, order);
        const auto tag = numberAt(bytes, entry, 2, order);
        if (tag == kWidthTag)
            size.width = value;
        else if (tag == kHeightTag)
            size.height = value;
    }
    return size;
}

NSSize sizeOfWebP(std::string_view bytes)
{
    constexpr std::uint32_t kSide = 0x3FFF;
    const auto form = bytes.substr(std::min<std::size_t>(12, bytes.size()), 4);
    if (form == "VP8X")
        return sizeOf(numberAt(bytes, 24, 3, Order::LittleEndian) + 1,
                      numberAt(bytes, 27, 3, Order::LittleEndian) + 1);
    if (form == "VP8L") {
        const auto sides = numberAt(bytes, 21, 4, Order::LittleEndian);
        return sizeOf((sides & kSide) + 1, (sides >> 14U & kSide) + 1);
    }
    return sizeOf(numberAt(bytes, 26, 2, Order::LittleEndian) & kSide,
                  numberAt(bytes, 28, 2, Order::LittleEndian) & kSide);
}

/// Whether a header of a size that there is follows the two letters, with which texts begin too.
bool isBMP(std::string_view bytes)
{
    constexpr std::array<std::uint32_t, 7> kHeaderSizes{12, 40, 52, 56, 64, 108, 124};
    const auto size = numberAt(bytes, 14, 4, Order::LittleEndian);
    return bytes.starts_with("BM")
        && std::find(kHeaderSizes.begin(), kHeaderSizes.end(), size) != kHeaderSizes.end();
}

bool isSVG(std::string_view bytes)
{
    const auto start = bytes.substr(0, kSVGProbeByteCount);
    const auto first = start.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != std::string_view::npos && start[first] == '<'
        && start.find("<svg") != std::string_view::npos;
}

} // namespace

std::optional<ImageHeader> imageHeader(std::string_view bytes)
{
    if (bytes.starts_with("\x89PNG\r\n\x1A\n"sv))
        return ImageHeader{ImageKind::PNG, sizeOfPNG(bytes)};
    if (bytes.starts_with("\xFF\xD8\xFF"sv))
        return ImageHeader{ImageKind::JPEG, sizeOfJPEG(bytes)};
    if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a"))
        return ImageHeader{ImageKind::GIF, sizeOfGIF(bytes)};
    if (bytes.starts_with("II*\0"sv) || bytes.starts_with("MM\0*"sv))
        return ImageHeader{ImageKind::TIFF, sizeOfTIFF(bytes)};
    if (isBMP(bytes))
        return ImageHeader{ImageKind::BMP, sizeOfBMP(bytes)};
    if (bytes.starts_with("RIFF") && bytes.substr(0, 12).ends_with("WEBP"))
        return ImageHeader{ImageKind::WebP, sizeOfWebP(bytes)};
    return isSVG(bytes) ? std::optional(ImageHeader{ImageKind::SVG, {}}) : std::nullopt;
}

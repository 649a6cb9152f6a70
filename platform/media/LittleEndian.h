#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The unsigned number of `byteCount` bytes (8 at most) at `offset`, lowest byte first. What lies behind the
/// end of `bytes` counts as zero, so that a short record reads as one whose last fields are not set.
[[nodiscard]] constexpr std::uint64_t littleEndian(std::string_view bytes, std::size_t offset,
                                                   std::size_t byteCount)
{
    std::uint64_t value = 0;
    for (std::size_t index = byteCount; index-- > 0;) {
        const bool isThere = offset < bytes.size() && index < bytes.size() - offset;
        value = (value << 8U) | (isThere ? static_cast<unsigned char>(bytes[offset + index]) : 0U);
    }
    return value;
}

[[nodiscard]] constexpr std::uint16_t littleEndian16(std::string_view bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(littleEndian(bytes, offset, 2));
}

[[nodiscard]] constexpr std::uint32_t littleEndian32(std::string_view bytes, std::size_t offset)
{
    return static_cast<std::uint32_t>(littleEndian(bytes, offset, 4));
}
